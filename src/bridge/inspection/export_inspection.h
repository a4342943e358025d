// Checks the line ends of an export before its import.
#pragma once

#include "bridge/inspection/export_scanner.h"
#include "host/plugin/input_inspection.h"

namespace silrdm {

// Detects exports whose CRs became LFs: they have LF outside texts and no CR outside texts. The search ends
// at the first such CR, mostly in the first sections.
class ExportInspector final : public VornInputInspector {
 public:
  void look(std::string_view bytes) override;
  VornInputFinding finish(const std::string& name) override;

  bool endsRecordsWithLf() const { return hasLf_ && !hasCr_ && scanner_.getSection() > 1; }

 private:
  ExportScanner scanner_;
  bool hasCr_ = false;
  bool hasLf_ = false;
};

}  // namespace silrdm
