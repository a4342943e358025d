#include <unordered_set>

#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
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

// The domains in use, collected only for reports.
Types findUsedDomains(Import& import) {
  Types used;
  if (import.reporter.reportsIrregularities()) {
    for (const VornDerivedType* domain : import.domainRegistry) {
      if (isUsed(*domain)) {
        used.insert(domain);
      }
    }
  }
  return used;
}

// Types of columns are in the model already. Also adds types that only other types use, and destroys the
// rest.
void keepUsedTypes(Import& import, SILObjectRegistry<VornDerivedType>& registry, const Types& usedBefore) {
  for (auto type = registry.begin(); type != registry.end();) {
    VornDerivedType* current = *type;
    if (!isUsed(*current)) {
      import.report(usedBefore.contains(current) ? Irregularity::mergedType : Irregularity::unusedType,
                    *current);
      registry.take(type).reset();
      continue;
    }
    if (current->featureCollection.count() == 0) {
      import.storeModel.addType(current);
    }
    ++type;
  }
}

}  // namespace

void collectModelTypes(Import& import) {
  for (const VornAttribute* column : import.attributeRegistry) {
    if (column->type != nullptr) {
      import.storeModel.addType(column->type);
    }
  }
  const Types usedDomains = findUsedDomains(import);
  factorizeTypes(import.storeModel);
  keepUsedTypes(import, import.domainRegistry, usedDomains);
  keepUsedTypes(import, import.commonItemRegistry, {});
}

}  // namespace silrdm
