// The log of an import on the command line.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>

#include "cli/import_report.h"
#include "host/std/log.h"

namespace cli {

// Writes the messages, and counts what was saved.
class ImportLog final : public VornStreamLog {
 public:
  explicit ImportLog(std::ostream& stream) : VornStreamLog(stream), stream_(stream) {}

  void modelSaved(VornStoreModel& model) override;

  bool listensToIrregularities() const override;
  void irregular(const VornIrregularity& irregularity) override;
  void recordsCounted(const VornRecordCount& count) override;

  // Has a report written from now on; `commitReport` puts it in its place. Both throw VornException.
  void openReport(const std::string& path) { report_.emplace(path); }
  void commitReport();

  // The last line of an import that was saved: "11 tables, 64 columns; no warnings; 0.01 s".
  void writeClosingLine() const;

 private:
  struct Counts {
    std::size_t tables = 0;
    std::size_t views = 0;
    std::size_t columns = 0;
    std::size_t associations = 0;
  };

  std::ostream& stream_;
  std::optional<ImportReport> report_;
  Counts counts_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace cli
