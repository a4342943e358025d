#include <utility>

#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/classifier.h"

namespace silrdm {

namespace {

// Replaces `column` with a view column, which takes over its element.
void placeInView(Import& import, VornSQLViewEntity& view, Parsed<VornAttribute> column) {
  auto made = std::make_unique<VornSQLViewAttribute>();
  VornSQLViewAttribute& viewColumn = *made;
  viewColumn = *column;
  addUniquelyNamed(import.reporter, viewColumn, [&] {
    view.addFeatureUniqueName(std::move(made), '/');
    hang(takeElement(*column), viewColumn);
  });
}

}  // namespace

void placeAttributes(Import& import) {
  for (auto place = import.attributeRegistry.begin(); place != import.attributeRegistry.end();) {
    VornAttribute* column = *place;
    const VornString& entityId = elementOf<SILRDMAttribute>(*column)->entityId;
    if (VornClass* table = import.entityRegistry.findFirst(entityId)) {
      addUniquelyNamed(import.reporter, *column, [&] { table->addFeatureUniqueName(column, '/'); });
      ++place;
      continue;
    }
    VornSQLViewEntity* view = import.viewRegistry.findFirst(entityId);
    if (view == nullptr) {
      import.report(Irregularity::columnWithoutEntity, *column, entityId);
    }
    Parsed<VornAttribute> removed = import.attributeRegistry.take(place);
    if (view != nullptr) {
      placeInView(import, *view, std::move(removed));
    }
  }
}

}  // namespace silrdm
