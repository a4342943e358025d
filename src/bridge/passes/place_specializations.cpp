#include "bridge/elements/registries.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/package.h"
#include "host/metamodel/relationship.h"
#include "host/services/generalization_roles.h"

namespace silrdm {

void placeSpecializations() {
  for (VornGeneralization* generalization : specializationRegistry) {
    const auto& element = *elementOf<SILRDMGeneralization>(*generalization);
    VornClass* supertype = entityRegistry.findFirst(element.supertypeEntityId);
    if (supertype == nullptr) {
      tell(Irregularity::specializationWithoutSupertype, *generalization, element.supertypeEntityId);
      continue;
    }
    getSupertypeGeneralizationRole(*generalization, *supertype, true);
    addUniquelyNamed(*generalization,
                     [&] { designPackage->addNamespaceElementUniqueName(generalization, '/'); });
    mainDiagram->addModelElement(generalization);
  }
}

}  // namespace silrdm
