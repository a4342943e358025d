// One import: an export and the files that its model is saved into.
#pragma once

#include <string>
#include <vector>

#include "cli/exit_status.h"
#include "cli/input_look.h"
#include "host/std/output_format.h"

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
  InputLook look = {};
};

// Throws UsageError when an output's format cannot be told, two outputs are one file, or one is an export; a
// report counts as an output. What `reserved` names (if it is not empty) is no output either.
void checkOutputs(const std::vector<ImportJob>& jobs, const std::string& reserved);

// The exit status of an import that ended so.
ExitStatus statusOf(const VornException& problem);

// Imports with `options`, into which the source goes. Whatever fails is told the log.
ExitStatus runImport(VornImportBridgeDllInterface& bridge, VornOptionList& options, const ImportJob& job,
                     ImportLog& log);

}  // namespace cli
