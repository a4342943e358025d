// Recognises files that hold something else than text in one-byte units: what a user may take for an export.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/plugin/input_inspection.h"

// Finds UTF-16 and UTF-32, gzip, zip, XML, JSON and SQL by how the file begins, and binary files by the share
// of control characters that no export format has (all below 32 but STX, ETX, TAB, LF, VT, FF, CR and FS).
// Text formats count only without FS, which separates the sections of exports.
class VornForeignContentInspector final : public VornInputInspector {
 public:
  void look(std::string_view bytes) override;
  VornInputFinding finish(const std::string& name) override;

 private:
  std::string head_;  // the first bytes of the file
  std::size_t size_ = 0;
  std::size_t foreign_ = 0;  // control characters
};
