#include "assembly/passes.h"
#include "bridge/import_state.h"
#include "elements/registries.h"
#include "host/bridgelib/types.h"
#include "host/metamodel/feature.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

// A type of a column is in the model already, one that others derive from comes to it, any other is
// destroyed.
void keepUsedTypes(SILObjectRegistry<VornDerivedType>& registry) {
  for (auto type = registry.begin(); type != registry.end();) {
    VornDerivedType* current = *type;
    if (current->featureCollection.count() == 0 && current->derivedTypeCollection.count() == 0) {
      registry.remove(type);
      destroyWithElement(current);
      continue;
    }
    if (current->featureCollection.count() == 0) {
      storeModel->addType(current);
    }
    ++type;
  }
}

}  // namespace

void collectModelTypes() {
  for (const VornAttribute* column : attributeRegistry) {
    if (column->type != nullptr) {
      storeModel->addType(column->type);
    }
  }
  factorizeTypes(*storeModel);
  keepUsedTypes(domainRegistry);
  keepUsedTypes(commonItemRegistry);
}

}  // namespace silrdm
