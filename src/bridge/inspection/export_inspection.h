// The look at an export before its import: whether its records end as they must.
#pragma once

#include "bridge/inspection/export_scanner.h"
#include "host/plugin/input_inspection.h"

namespace silrdm {

// Finds exports whose CRs became LFs: LF outside texts, and no CR outside texts anywhere. The first such CR
// settles that the file is sound, so that little more than the first section is looked at.
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
