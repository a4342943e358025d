#include "bridge/import/import.h"
#include "bridge/passes/keep_only.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

void dropGeneralizationRoles(Import& import) {
  keepOnly(import.roleRegistry, [&import](const VornAssociationRole& role) {
    const auto& element = *elementOf<SILRDMAssociationRole>(role);
    if (element.inGeneralization) {
      import.report(Irregularity::subtypeLink, role, element.specializationId);
    } else if (role.getOwner() == nullptr) {
      import.report(Irregularity::unconnectedRole, role, element.relationshipId);
    }
    return !element.inGeneralization;
  });
}

}  // namespace silrdm
