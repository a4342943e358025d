#include "export_scan.h"

#include <memory>

#include "bridge/pipeline/sections.h"
#include "bridge/reader/export_reader.h"

ExportScan scanExport(const VornString& path, VornLog& log) {
  using namespace silrdm;
  Reporter reporter(log, nameOfSection);
  const auto reader = std::make_unique<ExportReader>(reporter);
  reader->open(path, false);
  ExportScan scan;
  while (!reader->getFile().isEndOfFile()) {
    reader->readRecord();
    if (*reader->getRecord() == '\0') {
      continue;
    }
    ++scan.records;
    for (char* cursor = reader->getRecord(); *cursor != '\0';) {
      nextField(cursor);
      ++scan.fields;
    }
  }
  return scan;
}
