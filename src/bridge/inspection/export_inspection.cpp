#include "bridge/inspection/export_inspection.h"

namespace silrdm {

void ExportInspector::look(std::string_view bytes) {
  constexpr char kLf = 10;
  for (const char byte : bytes) {
    if (hasCr_ || scanner_.isPastEnd()) {
      return;
    }
    if (!scanner_.isInText()) {
      hasCr_ = byte == control::kCr;
      hasLf_ |= byte == kLf;
    }
    scanner_.take(byte);
  }
}

VornInputFinding ExportInspector::finish(const std::string& name) {
  if (!endsRecordsWithLf()) {
    return {};
  }
  return {"Records in '" + name + "' end with LF instead of CR, so it was probably converted on the way.", "",
          true};
}

}  // namespace silrdm
