#include <utility>

#include "bridge/elements/registries.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/classifier.h"

namespace silrdm {

namespace {

// Puts a view column in the place of `column`, whose element it takes over. The column is destroyed.
void placeInView(VornSQLViewEntity& view, Parsed<VornAttribute> column) {
  Parsed<VornSQLViewAttribute> viewColumn(new VornSQLViewAttribute());
  *viewColumn = *column;
  viewColumn->generalPointer = std::exchange(column->generalPointer, nullptr);
  addUniquelyNamed(*viewColumn, [&] { view.addFeatureUniqueName(viewColumn.get(), '/'); });
  viewColumn.release();
}

}  // namespace

void placeAttributes() {
  for (auto place = attributeRegistry.begin(); place != attributeRegistry.end();) {
    VornAttribute* column = *place;
    const VornString& entityId = elementOf<SILRDMAttribute>(*column)->entityId;
    if (VornClass* table = entityRegistry.findFirst(entityId)) {
      addUniquelyNamed(*column, [&] { table->addFeatureUniqueName(column, '/'); });
      ++place;
      continue;
    }
    VornSQLViewEntity* view = viewRegistry.findFirst(entityId);
    if (view == nullptr) {
      tell(Irregularity::columnWithoutEntity, *column, entityId);
    }
    attributeRegistry.remove(place);
    Parsed<VornAttribute> removed(column);
    if (view != nullptr) {
      placeInView(*view, std::move(removed));
    }
  }
}

}  // namespace silrdm
