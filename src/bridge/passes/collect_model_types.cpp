#include <unordered_set>

#include "bridge/elements/registries.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/feature.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/type.h"
#include "host/services/types.h"

namespace silrdm {

namespace {

using Types = std::unordered_set<const VornDerivedType*>;

bool isUsed(const VornDerivedType& type) {
  return type.featureCollection.count() > 0 || type.derivedTypeCollection.count() > 0;
}

// The domains in use, for a log that listens.
Types findUsedDomains() {
  Types used;
  if (isListening) {
    for (const VornDerivedType* domain : domainRegistry) {
      if (isUsed(*domain)) {
        used.insert(domain);
      }
    }
  }
  return used;
}

// A type of a column is in the model already, one that others derive from comes to it, any other is
// destroyed.
void keepUsedTypes(SILObjectRegistry<VornDerivedType>& registry, const Types& usedBefore) {
  for (auto type = registry.begin(); type != registry.end();) {
    VornDerivedType* current = *type;
    if (!isUsed(*current)) {
      tell(usedBefore.contains(current) ? Irregularity::mergedType : Irregularity::unusedType, *current);
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
  const Types usedDomains = findUsedDomains();
  factorizeTypes(*storeModel);
  keepUsedTypes(domainRegistry, usedDomains);
  keepUsedTypes(commonItemRegistry, {});
}

}  // namespace silrdm
