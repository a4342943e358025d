// Tracks sections and texts through the bytes of an export as the reader does, without reading records.
#pragma once

#include "bridge/pipeline/sections.h"
#include "bridge/reader/record_syntax.h"

namespace silrdm {

class ExportScanner {
 public:
  // The section of the next byte; 69 after the last section.
  std::size_t getSection() const { return section_; }
  bool isPastEnd() const { return section_ > kSections.size(); }
  bool isInText() const { return inText_; }

  void take(char byte) {
    switch (byte) {
      case control::kStx:
        inText_ = true;
        break;
      case control::kEtx:
        inText_ = false;
        break;
      case control::kFs:
        endSection();
        break;
      default:
        break;
    }
  }

 private:
  // In a skipped section an FS counts even inside a text.
  void endSection() {
    const bool isPassedOver = isPastEnd() || *kSections[section_ - 1].name == '\0';
    if (isPassedOver || !inText_) {
      ++section_;
      inText_ = false;
    }
  }

  std::size_t section_ = 1;
  bool inText_ = false;
};

}  // namespace silrdm
