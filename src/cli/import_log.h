// The log of an import on the command line.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "cli/import_job.h"
#include "cli/import_report.h"
#include "cli/progress_bar.h"
#include "host/std/log.h"

namespace cli {

// What an import made.
struct ImportCounts {
  std::size_t tables = 0;
  std::size_t views = 0;
  std::size_t columns = 0;
  std::size_t associations = 0;
};

// "11 tables, 64 columns; no warnings; 0.01 s"
std::string describeImport(const ImportCounts& counts, std::size_t warnings, double seconds);

// Writes the messages, shows the progress between them, counts what was saved and has it saved again where
// more outputs are wanted.
class ImportLog final : public VornStreamLog {
 public:
  ImportLog(std::ostream& stream, bool showsProgress) : VornStreamLog(stream), bar_(showsProgress) {}

  // Leaves out the bridge's status messages, which tell the steps of an import.
  void hideSteps() { hidesSteps_ = true; }

  // Each model that is saved goes into these too.
  void saveAlsoInto(std::vector<ImportOutput> outputs) { further_ = std::move(outputs); }

  void modelSaved(VornStoreModel& model) override;
  void progress(const char* what, std::size_t done, std::size_t total) override {
    bar_.update(what, done, total);
  }
  void endProgress() { bar_.clear(); }

  bool listensToIrregularities() const override;
  void irregular(const VornIrregularity& irregularity) override;
  void recordsCounted(const VornRecordCount& count) override;

  // Has a report written from now on; `commitReport` puts it in its place. Both throw VornException.
  void openReport(const std::string& path) { report_.emplace(path); }
  void commitReport();

  const ImportCounts& getCounts() const { return counts_; }
  // Whether the bridge warned, of records then, and not the host.
  bool hasBridgeWarned() const { return hasBridgeWarned_; }
  // The code and text of the last message that was an error; empty when there was none.
  const std::string& getError() const { return error_; }
  double getSeconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  void put(VornSeverity severity, const VornString& code, const VornString& text) override;

  bool hidesSteps_ = false;
  std::optional<ImportReport> report_;
  ProgressBar bar_;
  ImportCounts counts_;
  bool hasBridgeWarned_ = false;
  std::vector<ImportOutput> further_;
  std::string error_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace cli
