#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/package.h"
#include "host/metamodel/relationship.h"
#include "host/services/generalization_roles.h"

namespace silrdm {

void placeSpecializations(Import& import) {
  for (VornGeneralization* generalization : import.specializationRegistry) {
    const auto& element = *elementOf<SILRDMGeneralization>(*generalization);
    VornClass* supertype = import.entityRegistry.findFirst(element.supertypeEntityId);
    if (supertype == nullptr) {
      import.report(Irregularity::specializationWithoutSupertype, *generalization, element.supertypeEntityId);
      continue;
    }
    getSupertypeGeneralizationRole(*generalization, *supertype, true);
    addUniquelyNamed(import.reporter, *generalization,
                     [&] { import.designPackage->addNamespaceElementUniqueName(generalization, '/'); });
    import.mainDiagram->addModelElement(generalization);
  }
}

}  // namespace silrdm
