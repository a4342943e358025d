// One import: an export and the files that its model is saved into.
#pragma once

#include <sys/types.h>

#include <ctime>
#include <string>
#include <vector>

#include "cli/exit_status.h"
#include "cli/input_look.h"
#include "host/base/output_format.h"

class VornException;
class VornImportBridgeDllInterface;
class VornOptionList;

namespace cli {

class ImportLog;

struct ImportOutput {
  std::string path;
  VornOutputFormat format;
};

struct ImportJob {
  std::string source;
  std::vector<ImportOutput> outputs;  // at least one
  std::string report;                 // where what is dropped or changed is told; empty: nowhere
  bool replaces = true;               // whether outputs that are there already are replaced
  InputLook look = {};
};

// The outputs, reports included, that were there before an import, each told from one that took its place.
class EarlierOutputs {
 public:
  // Looks at the outputs as they are now.
  explicit EarlierOutputs(const ImportJob& job);

  // Whether all of them were there.
  bool isComplete() const { return isComplete_; }
  // Those that are there still: after a failure, of an earlier import.
  std::vector<std::string> getUntouched() const;

 private:
  struct File {
    std::string path;
    ino_t number;
    timespec modified;
  };

  std::vector<File> files_;
  bool isComplete_ = true;
};

// Throws UsageError when an output's format cannot be told, two outputs are one file, by whatever name or as
// an open standard stream, or one is an export. A report counts as an output, and standard error as the
// messages' file. `reserved` names the summary of a batch, whose table goes to standard output; empty: there
// is no batch.
void checkOutputs(const std::vector<ImportJob>& jobs, const std::string& reserved);

// The exit status of an import that ended so.
ExitStatus statusOf(const VornException& problem);

// Imports with `options`, into which the source goes, once it has seen that the outputs can be written.
// Failures are logged.
ExitStatus runImport(VornImportBridgeDllInterface& bridge, VornOptionList& options, const ImportJob& job,
                     ImportLog& log);

}  // namespace cli
