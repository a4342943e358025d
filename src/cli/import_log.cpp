#include "cli/import_log.h"

#include <iomanip>
#include <sstream>

#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"

namespace cli {

namespace {

// "1 table", "2 tables"
std::string counted(std::size_t count, const char* one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

}  // namespace

void ImportLog::modelSaved(VornStoreModel& model) {
  counts_ = {};
  for (const VornDesignPackage* package : model.designPackageCollection) {
    for (const VornNamespaceElement* element : package->elementCollection) {
      if (const auto* classifier = dynamic_cast<const VornClassifier*>(element)) {
        counts_.columns += classifier->featureCollection.count();
      }
      counts_.tables += static_cast<std::size_t>(element->getElementType() == VornElementType::classType);
      counts_.views += static_cast<std::size_t>(element->getElementType() == VornElementType::sqlViewEntity);
      counts_.associations +=
          static_cast<std::size_t>(element->getElementType() == VornElementType::association);
    }
  }
}

bool ImportLog::listensToIrregularities() const {
  return report_.has_value() || VornStreamLog::listensToIrregularities();
}

void ImportLog::irregular(const VornIrregularity& irregularity) {
  if (report_) {
    report_->add(irregularity);
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

void ImportLog::commitReport() {
  if (report_) {
    report_->commit();
  }
}

void ImportLog::writeClosingLine() const {
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start_;
  const std::size_t warnings = getCount(VornSeverity::warning);
  std::ostringstream line;
  line << counted(counts_.tables, "table");
  if (counts_.views > 0) {
    line << ", " << counted(counts_.views, "view");
  }
  line << ", " << counted(counts_.columns, "column");
  if (counts_.associations > 0) {
    line << ", " << counted(counts_.associations, "association");
  }
  line << "; " << (warnings == 0 ? "no warnings" : counted(warnings, "warning")) << "; " << std::fixed
       << std::setprecision(2) << seconds.count() << " s\n";
  stream_ << line.str();
}

}  // namespace cli
