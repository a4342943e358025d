#include "export_scan.h"

#include <stdexcept>

#include "bridge/import/import_state.h"
#include "bridge/reader/field_reader.h"

ExportScan scanExport(const VornString& path, VornLog& log) {
  using namespace silrdm;
  importLog = &log;
  inputFile = path;
  if (!inputFile.open(VornFile::kRead | VornFile::kBinary)) {
    throw std::runtime_error(std::string("cannot open ") + path.c_str());
  }
  ExportScan scan;
  while (!inputFile.isEndOfFile()) {
    readRecord(recordBuffer, sizeof recordBuffer);
    if (recordBuffer[0] == '\0') {
      continue;
    }
    ++scan.records;
    for (char* cursor = recordBuffer; *cursor != '\0';) {
      nextField(cursor);
      ++scan.fields;
    }
  }
  releaseImportState();
  return scan;
}
