// The look at an export before it is imported: whether it should be, and in which encoding.
#pragma once

#include "cli/exit_status.h"
#include "cli/likely_encoding.h"

class VornImportBridgeDllInterface;
class VornLog;
class VornOptionList;

namespace cli {

// As an encoding this word means: detect it.
inline constexpr const char* kDetectedEncoding = "auto";

struct InputLook {
  bool force = false;            // import even what is no sound export
  bool detectsEncoding = false;  // set the option "Encoding" to what the bytes tell
};

// Looks once at the export that the options name, unless it can be read only once, such as a pipe. kBadInput,
// with the reason in the log, where it should not be imported. Otherwise the log knows its encoding, and has
// a warning where the bytes contradict the one that was chosen. `likely`, unless null, gets the guess.
ExitStatus lookAtInput(VornImportBridgeDllInterface& bridge, VornOptionList& options, const InputLook& look,
                       VornLog& log, LikelyEncoding* likely = nullptr);

// The path as a word of a shell's command line.
std::string quoteForShell(const std::string& path);

}  // namespace cli
