// The report of an import: what it dropped or changed, and what became of the records of each section.
#pragma once

#include <string>
#include <string_view>

#include "host/std/output_file.h"

struct VornIrregularity;
struct VornRecordCount;

namespace cli {

// A file that appears whole or not at all: JSON Lines, one event a line, or, where its extension is .txt or
// .md, readable text. docs/report.md has the keys.
class ImportReport {
 public:
  // Throws VornException when the file cannot be made.
  explicit ImportReport(const std::string& path);

  void add(const VornIrregularity& irregularity);
  void add(const VornRecordCount& count);
  void commit() { file_.commit(); }

 private:
  void writeLine(std::string_view line);

  VornOutputFile file_;
  bool isText_;
};

}  // namespace cli
