// VornImportObserver: follows an import beside the messages of its log. The host overrides what it wants to
// know and gives the observer to the log; a bridge calls it.
#pragma once

#include <cstddef>

#include "host/base/text.h"

struct VornIrregularity;
struct VornRecordCount;

class VornImportObserver {
 public:
  VornImportObserver() = default;
  VornImportObserver(const VornImportObserver&) = delete;
  VornImportObserver& operator=(const VornImportObserver&) = delete;
  virtual ~VornImportObserver();

  // Whether `irregular` is wanted for irregularities without a warning, and `recordsCounted` at all.
  virtual bool wantsIrregularities() const { return false; }
  // A bridge dropped or changed something of its source. Called before the warning, if there is one.
  virtual void irregular(const VornIrregularity& /*irregularity*/) {}
  // Called once for each section of the source that was read to its end and became a part of the model.
  virtual void recordsCounted(const VornRecordCount& /*count*/) {}
  // Called after the warning that the bridge does not know the database system that its source names.
  virtual void targetSystemUnknown(const VornString& /*name*/, const VornString& /*version*/) {}

  // Called now and then: `done` of `total` (0: unknown) of a task are done: "reading", in bytes.
  virtual void progress(const char* /*task*/, std::size_t /*done*/, std::size_t /*total*/) {}
  // A bridge has finished one of its stages; see VornBridgeStage.
  virtual void stageDone(const char* /*list*/, int /*position*/) {}
};
