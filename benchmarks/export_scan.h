// The bare scan: every record of an export read and every field cut, and nothing made of them. The least that
// an import can take.
#pragma once

#include <cstddef>

class VornLog;
class VornString;

struct ExportScan {
  std::size_t records = 0;
  std::size_t fields = 0;
};

// Throws std::runtime_error when the file cannot be opened.
ExportScan scanExport(const VornString& path, VornLog& log);
