#include "cli/import_log.h"

#include <unistd.h>

#include <iomanip>
#include <iostream>
#include <sstream>

#include "cli/target_system_hint.h"
#include "host/base/irregularity.h"
#include "host/base/pemo.h"
#include "host/base/unicode.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"
#include "host/plugin/dll_interface.h"
#include "host/plugin/target_system_catalogue.h"

namespace cli {

namespace {

// "1 table", "2 tables"
std::string counted(std::size_t count, const char* one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

ImportCounts countModel(const VornStoreModel& model) {
  ImportCounts counts;
  for (const VornDesignPackage* package : model.designPackageCollection) {
    for (const VornNamespaceElement* element : package->elementCollection) {
      const VornElementType type = element->getElementType();
      const auto is = [&](VornElementType wanted) { return static_cast<std::size_t>(type == wanted); };
      counts.tables += is(VornElementType::classType);
      counts.views += is(VornElementType::sqlViewEntity);
      counts.associations += is(VornElementType::association);
      if (type == VornElementType::classType || type == VornElementType::sqlViewEntity) {
        counts.columns += static_cast<const VornClassifier*>(element)->featureCollection.count();
      }
    }
  }
  return counts;
}

}  // namespace

std::string describeImport(const ImportCounts& counts, std::size_t warnings, double seconds) {
  std::ostringstream line;
  line << counted(counts.tables, "table");
  if (counts.views > 0) {
    line << ", " << counted(counts.views, "view");
  }
  line << ", " << counted(counts.columns, "column");
  if (counts.associations > 0) {
    line << ", " << counted(counts.associations, "association");
  }
  line << "; " << (warnings == 0 ? "no warnings" : counted(warnings, "warning")) << "; " << std::fixed
       << std::setprecision(2) << seconds << " s";
  return line.str();
}

ImportLog::ImportLog(std::ostream& stream, bool showsProgress)
    : VornStreamLog(stream),
      isOnTerminal_(&stream == &std::cerr && ::isatty(STDERR_FILENO) == 1),
      bar_(showsProgress) {
}

void ImportLog::finish() {
  bar_.clear();
  warnings_.flush([this](const std::string& code, const std::string& text) {
    VornStreamLog::put(VornSeverity::warning, VornString(code), VornString(text));
  });
}

void ImportLog::modelSaved(VornStoreModel& model) {
  counts_ = countModel(model);
  // Saving calls this again for every further model that is saved: each call sees to the next one.
  if (!further_.empty()) {
    VornFile output;
    output = VornString(further_.front().path);
    output.setFormat(further_.front().format);
    further_.erase(further_.begin());
    VornBridgeDllInterface::saveStoreModel(output, model, *this);
  }
}

bool ImportLog::listensToIrregularities() const {
  return report_.has_value() || counting_.has_value() || VornStreamLog::listensToIrregularities();
}

void ImportLog::irregular(const VornIrregularity& irregularity) {
  if (counting_ && irregularity.dropped) {
    ++counting_->dropped[std::string(irregularity.kind)];
  }
  if (groupsWarnings() && !irregularity.warning.empty()) {
    warnings_.setSubject(irregularity.warning,
                         decode(irregularity.name.empty() ? irregularity.identifier : irregularity.name));
  }
  if (report_) {
    report_->add(VornDecodedIrregularity(irregularity, *this).get());
  }
  if (isEnabled(VornSeverity::debug)) {
    VornStreamLog::irregular(irregularity);
  }
}

void ImportLog::recordsCounted(const VornRecordCount& count) {
  if (report_) {
    report_->add(count);
  }
  if (isEnabled(VornSeverity::debug)) {
    VornStreamLog::recordsCounted(count);
  }
}

void ImportLog::suggestSystemsOf(VornImportBridgeDllInterface& bridge) {
  catalogue_ = dynamic_cast<VornTargetSystemCatalogue*>(&bridge);
}

void ImportLog::targetSystemUnknown(const VornString& name, const VornString& version) {
  if (catalogue_ == nullptr) {
    return;
  }
  finish();  // first the warning that it belongs to
  const std::string nearest = listSystems(
      findNearestSystems(decode(name.view()), decode(version.view()), catalogue_->getTargetSystems()));
  PEMO::NEAREST_TARGET_SYSTEMS.log(*this, {VornString(std::string_view(nearest.empty() ? "none" : nearest))});
}

void ImportLog::commitReport() {
  if (report_) {
    report_->commit();
  }
}

void ImportLog::put(VornSeverity severity, const VornString& code, const VornString& text) {
  if (hidesSteps_ && severity == VornSeverity::status && !code.view().starts_with("VORN_")) {
    return;
  }
  hasBridgeWarned_ |= severity == VornSeverity::warning &&
                      (!code.view().starts_with("VORN_") || code == PEMO::FURTHER_SCHEMA.getCode() ||
                       code == PEMO::FURTHER_EXPORT.getCode());
  if (severity <= VornSeverity::error) {
    error_ = std::string(code.view()) + " " + toPrintableLine(text.view());
  }
  if (counting_) {
    if (severity == VornSeverity::warning) {
      ++counting_->warnings[std::string(code.view())];
    }
    if (severity > counting_->shown) {
      return;
    }
  }
  if (severity == VornSeverity::warning && groupsWarnings() && warnings_.add(code.view(), text.view())) {
    return;
  }
  bar_.clear();
  if (severity <= VornSeverity::error) {
    finish();
  }
  VornStreamLog::put(severity, code, text);
}

}  // namespace cli
