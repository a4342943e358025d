#include "assembly/passes.h"
#include "bridge/import_state.h"
#include "bridge/messages.h"
#include "elements/registries.h"
#include "host/bridgelib/generalization_roles.h"
#include "host/metamodel/package.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

void placeSpecializations() {
  for (VornGeneralization* generalization : specializationRegistry) {
    const auto& element = *elementOf<SILRDMGeneralization>(*generalization);
    VornClass* supertype = entityRegistry.findFirst(element.supertypeEntityId);
    if (supertype == nullptr) {
      KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_GENERALIZATION.log(*importLog);
      continue;
    }
    getSupertypeGeneralizationRole(*generalization, *supertype, true);
    designPackage->addNamespaceElementUniqueName(generalization, '/');
    mainDiagram->addModelElement(generalization);
  }
}

}  // namespace silrdm
