// The formats in which a store model can be saved: a table of writers.
#pragma once

#include <span>
#include <string_view>

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornModelOutput;
struct VornOutputFormat;

struct VornModelFormat {
  std::string_view name;            // what a user calls it: "json"
  std::string_view extension;       // of its files, with the dot
  std::string_view otherExtension;  // the same, also usual; empty: none
  std::string_view summary;         // one line on what it is
  // Writes the whole model, with the choices of `format` that mean something here. Throws VornException; the
  // caller commits the file.
  void (*write)(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file, VornLog& log);
};

// All formats, in the order in which they are told to a user.
std::span<const VornModelFormat> getModelFormats();

// Returns the format that `output` names, or else the one of its path's extension, whose letter case does not
// count. Throws VornException (PEMO::UNKNOWN_OUTPUT_FORMAT) if there is none.
const VornModelFormat& getModelFormat(const VornModelOutput& output);
