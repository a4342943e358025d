// ImportWatch: what the command line shows of an import beside its messages.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "cli/import_report.h"
#include "host/base/import_observer.h"

class VornImportBridgeDllInterface;
class VornTargetSystemCatalogue;

namespace cli {

class ImportLog;

// Numbers of occurrences by name.
using CountsByName = std::map<std::string, std::size_t>;

class ImportWatch final : public VornImportObserver {
 public:
  // Becomes the observer of `log` and shows the progress between its messages.
  explicit ImportWatch(ImportLog& log);

  // Names the bridge's systems that resemble one that is unknown.
  void suggestSystemsOf(VornImportBridgeDllInterface& bridge);

  // Counts dropped records by the kind of irregularity.
  void countDropped() { countsDropped_ = true; }
  const CountsByName& getDroppedByKind() const { return droppedByKind_; }

  // Writes a report; `commitReport` completes it. Both throw VornException.
  void openReport(const std::string& path) { report_.emplace(path); }
  void commitReport();

  // Whether there was a warning that a report explains.
  bool hasWarned() const { return hasWarned_; }

  bool wantsIrregularities() const override { return report_.has_value() || countsDropped_; }
  void irregular(const VornIrregularity& irregularity) override;
  void recordsCounted(const VornRecordCount& count) override;
  void targetSystemUnknown(const VornString& name, const VornString& version) override;
  void progress(const char* task, std::size_t done, std::size_t total) override;

 private:
  ImportLog& log_;
  std::optional<ImportReport> report_;
  VornTargetSystemCatalogue* catalogue_ = nullptr;
  bool countsDropped_ = false;
  CountsByName droppedByKind_;
  bool hasWarned_ = false;
};

}  // namespace cli
