#include "host/base/import_observer.h"

VornImportObserver::~VornImportObserver() = default;

bool VornImportObserver::wantsIrregularities() const {
  return false;
}

void VornImportObserver::irregular(const VornIrregularity& /*irregularity*/) {
}

void VornImportObserver::recordsCounted(const VornRecordCount& /*count*/) {
}

void VornImportObserver::targetSystemUnknown(const VornString& /*name*/, const VornString& /*version*/) {
}

void VornImportObserver::progress(const char* /*task*/, std::size_t /*done*/, std::size_t /*total*/) {
}

void VornImportObserver::stageDone(const char* /*list*/, int /*position*/) {
}
