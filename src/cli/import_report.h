// The report of an import: what it dropped or changed, and what became of the records of each section.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/base/output_file.h"
#include "host/writers/common/texts.h"

struct VornIrregularity;
struct VornRecordCount;

namespace cli {

// A file that appears whole or not at all: JSON Lines, one event per line, or, where its extension is .txt or
// .md, text or Markdown for people. docs/report.md has the keys.
class ImportReport {
 public:
  enum class Form : std::uint8_t { jsonLines, text, markdown };

  // Throws VornException when the file cannot be made.
  explicit ImportReport(const std::string& path);

  void add(const VornIrregularity& irregularity);
  void add(const VornRecordCount& count);
  void commit() { file_.commit(); }

 private:
  // A heading, unless the section's events were the last ones.
  void beginSection(int section, std::string_view name);
  void addItem(const std::string& text);
  void addRow(const VornRecordCount& count);

  VornOutputFile file_;
  TextOutput out_{file_};
  Form form_;
  int section_ = 0;  // whose events come last; 0 before the first
  bool hasRows_ = false;
};

}  // namespace cli
