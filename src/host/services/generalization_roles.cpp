#include "host/services/generalization_roles.h"

#include "host/metamodel/relationship.h"

namespace {

using Kind = VornGeneralizationRole::Kind;

VornGeneralizationRole* getRole(VornGeneralization& generalization, Kind kind, VornClass& associated,
                                bool create) {
  VornGeneralizationRole* role = generalization.findRole(kind, associated);
  return role == nullptr && create ? generalization.addRole(kind, &associated) : role;
}

}  // namespace

VornGeneralizationRole* getSupertypeGeneralizationRole(VornGeneralization& generalization,
                                                       VornClass& supertype, bool create) {
  return getRole(generalization, Kind::supertype, supertype, create);
}

VornGeneralizationRole* getSubtypeGeneralizationRole(VornGeneralization& generalization, VornClass& subtype,
                                                     bool create) {
  return getRole(generalization, Kind::subtype, subtype, create);
}
