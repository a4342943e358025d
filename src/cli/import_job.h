// One import: an export and the files that its model is saved into.
#pragma once

#include <sys/types.h>

#include <ctime>
#include <string>
#include <vector>

#include "cli/exit_status.h"
#include "cli/import_counts.h"
#include "cli/input_look.h"
#include "host/writers/model_outputs.h"

class VornImportBridgeDllInterface;
class VornOptionList;

namespace cli {

class ImportLog;
class ImportWatch;

struct ImportJob {
  std::string source;
  std::vector<VornModelOutput> outputs;  // at least one
  std::string report;                    // where to report what is dropped or changed; empty: nowhere
  bool replaces = true;                  // whether outputs that are there already are replaced
  InputLook look = {};
};

// The outputs and reports that existed before an import, to tell them from files that replaced them.
class EarlierOutputs {
 public:
  // Examines the outputs now.
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

// Throws UsageError if the format of an output is unknown, two outputs are the same file (by any name, or as
// an open standard stream), or an output is an export. Reports count as outputs, and standard error as the
// file of the messages. `reserved` names the summary of a batch, whose table goes to standard output; empty:
// no batch.
void checkOutputs(const std::vector<ImportJob>& jobs, const std::string& reserved);

struct ImportResult {
  ExitStatus status = kDone;
  ImportCounts counts;  // of what was saved
};

// Imports with `options`, after setting the source in them, if the outputs can be written. Failures are
// logged.
ImportResult runImport(VornImportBridgeDllInterface& bridge, VornOptionList& options, const ImportJob& job,
                       ImportLog& log, ImportWatch& watch);

}  // namespace cli
