#include <utility>

#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/classifier.h"

namespace silrdm {

namespace {

// Replaces `column` with a view column, which takes over its element.
void placeInView(Import& import, VornSQLViewEntity& view, Parsed<VornAttribute> column) {
  Parsed<VornSQLViewAttribute> viewColumn(new VornSQLViewAttribute());
  *viewColumn = *column;
  hang(takeElement(*column), *viewColumn);
  addUniquelyNamed(import.reporter, *viewColumn, [&] { view.addFeatureUniqueName(viewColumn.get(), '/'); });
  viewColumn.release();
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
