#include "assembly/keep_only.h"
#include "assembly/passes.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

void dropGeneralizationRoles() {
  keepOnly(roleRegistry, [](const VornAssociationRole& role) {
    return !elementOf<SILRDMAssociationRole>(role)->inGeneralization;
  });
}

}  // namespace silrdm
