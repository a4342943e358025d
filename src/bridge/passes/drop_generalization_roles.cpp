#include "bridge/passes/keep_only.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

void dropGeneralizationRoles() {
  keepOnly(roleRegistry, [](const VornAssociationRole& role) {
    const auto& element = *elementOf<SILRDMAssociationRole>(role);
    if (element.inGeneralization) {
      tell(Irregularity::subtypeLink, role, element.specializationId);
    } else if (role.getOwner() == nullptr) {
      tell(Irregularity::unconnectedRole, role, element.relationshipId);
    }
    return !element.inGeneralization;
  });
}

}  // namespace silrdm
