// The log of an import on the command line.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/import_job.h"
#include "cli/import_report.h"
#include "cli/progress_bar.h"
#include "cli/repeated_warnings.h"
#include "host/base/log.h"

class VornImportBridgeDllInterface;
class VornTargetSystemCatalogue;

namespace cli {

// What an import made.
struct ImportCounts {
  std::size_t tables = 0;
  std::size_t views = 0;
  std::size_t columns = 0;
  std::size_t associations = 0;
};

// How often there was what has that name.
using CountsByName = std::map<std::string, std::size_t>;

// "11 tables, 64 columns; no warnings; 0.01 s"
std::string describeImport(const ImportCounts& counts, std::size_t warnings, double seconds);

// Writes the messages, shows the progress between them, counts what was saved and has it saved again where
// more outputs are wanted. On a terminal equal warnings become one line, before an error or at the end.
class ImportLog final : public VornStreamLog {
 public:
  ImportLog(std::ostream& stream, bool showsProgress);
  ImportLog(const ImportLog&) = delete;
  ImportLog& operator=(const ImportLog&) = delete;
  ~ImportLog() override { finish(); }

  // Leaves out the bridge's status messages, which tell the steps of an import.
  void hideSteps() { hidesSteps_ = true; }

  // Each model that is saved goes into these too.
  void saveAlsoInto(std::vector<ImportOutput> outputs) { further_ = std::move(outputs); }

  void modelSaved(VornStoreModel& model) override;
  void progress(const char* what, std::size_t done, std::size_t total) override {
    bar_.update(what, done, total);
  }
  // Removes the progress and writes the warnings that are left.
  void finish();

  bool listensToIrregularities() const override;
  void irregular(const VornIrregularity& irregularity) override;
  void recordsCounted(const VornRecordCount& count) override;
  void targetSystemUnknown(const VornString& name, const VornString& version) override;
  // From now on a system that is not known is followed by those of the bridge that are near it.
  void suggestSystemsOf(VornImportBridgeDllInterface& bridge);

  // Has the warnings counted by their codes, and what is dropped by its kind. Only what is as severe as
  // `shown` is still written.
  void countByName(VornSeverity shown) { counting_ = Counting{shown, {}, {}}; }
  CountsByName getWarningsByCode() const { return counting_ ? counting_->warnings : CountsByName(); }
  CountsByName getDroppedByKind() const { return counting_ ? counting_->dropped : CountsByName(); }

  // Has a report written from now on; `commitReport` puts it in its place. Both throw VornException.
  void openReport(const std::string& path) { report_.emplace(path); }
  void commitReport();

  const ImportCounts& getCounts() const { return counts_; }
  // Whether there was a warning that a report says more of.
  bool hasBridgeWarned() const { return hasBridgeWarned_; }
  // The code and text of the last message that was an error; empty when there was none.
  const std::string& getError() const { return error_; }
  double getSeconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  void put(VornSeverity severity, const VornString& code, const VornString& text) override;

  struct Counting {
    VornSeverity shown;
    CountsByName warnings;
    CountsByName dropped;
  };

  // Debug messages name the record of each warning, so that each is written where it belongs.
  bool groupsWarnings() const { return isOnTerminal_ && !isEnabled(VornSeverity::debug); }

  bool isOnTerminal_;
  RepeatedWarnings warnings_;
  std::optional<Counting> counting_;
  bool hidesSteps_ = false;
  std::optional<ImportReport> report_;
  VornTargetSystemCatalogue* catalogue_ = nullptr;
  ProgressBar bar_;
  ImportCounts counts_;
  bool hasBridgeWarned_ = false;
  std::vector<ImportOutput> further_;
  std::string error_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace cli
