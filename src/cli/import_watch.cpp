#include "cli/import_watch.h"

#include "cli/import_log.h"
#include "cli/target_system_hint.h"
#include "host/base/irregularity.h"
#include "host/base/pemo.h"
#include "host/plugin/dll_interface.h"
#include "host/plugin/target_system_catalogue.h"

namespace cli {

ImportWatch::ImportWatch(ImportLog& log) : log_(log) {
  log.setObserver(*this);
}

void ImportWatch::suggestSystemsOf(VornImportBridgeDllInterface& bridge) {
  catalogue_ = dynamic_cast<VornTargetSystemCatalogue*>(&bridge);
}

void ImportWatch::commitReport() {
  if (report_) {
    report_->commit();
  }
}

void ImportWatch::irregular(const VornIrregularity& irregularity) {
  if (countsDropped_ && irregularity.dropped) {
    ++droppedByKind_[std::string(irregularity.kind)];
  }
  const VornDecodedIrregularity decoded(irregularity, log_);
  if (!irregularity.warning.empty()) {
    hasWarned_ = true;
    const std::string_view name = decoded.get().name;
    log_.nameNextWarning(irregularity.warning, name.empty() ? decoded.get().identifier : name);
  }
  if (report_) {
    report_->add(decoded.get());
  }
}

void ImportWatch::recordsCounted(const VornRecordCount& count) {
  if (report_) {
    report_->add(count);
  }
}

void ImportWatch::targetSystemUnknown(const VornString& name, const VornString& version) {
  if (catalogue_ == nullptr) {
    return;
  }
  log_.finish();  // first the warning that it belongs to
  const std::string nearest = listSystems(findNearestSystems(
      log_.decode(name.view()), log_.decode(version.view()), catalogue_->getTargetSystems()));
  PEMO::NEAREST_TARGET_SYSTEMS.log(log_, {VornString(nearest.empty() ? "none" : nearest)});
}

void ImportWatch::progress(const char* task, std::size_t done, std::size_t total) {
  log_.showProgress(task, done, total);
}

}  // namespace cli
