#include "cli/import_counts.h"

#include <iomanip>
#include <sstream>

#include "host/metamodel/casting.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"

namespace cli {

namespace {

// "1 table", "2 tables"
std::string counted(std::size_t count, const char* one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

}  // namespace

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
        counts.columns += cast<VornClassifier>(element)->featureCollection.count();
      }
    }
  }
  return counts;
}

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

}  // namespace cli
