#include "assembly/passes.h"
#include "bridge/import_state.h"
#include "bridge/messages.h"
#include "elements/registries.h"
#include "host/bridgelib/generalization_roles.h"
#include "host/metamodel/package.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

namespace {

// One end of a relationship as it was read.
struct End {
  explicit End(VornAssociationRole& associationRole)
      : role(associationRole), element(*elementOf<SILRDMAssociationRole>(associationRole)) {}

  VornAssociationRole& role;
  SILRDMAssociationRole& element;
};

// The specialization of which two ends are a link from supertype to subtype, or null.
VornGeneralization* findSpecialization(const End& first, const End& second) {
  VornGeneralization* named = specializationRegistry.findFirst(first.element.specializationId);
  return named != nullptr ? named : specializationRegistry.findFirst(second.element.specializationId);
}

void destroyRelationship(const VornString& identifier) {
  auto place = relationshipRegistry.begin();
  if (VornAssociation* association = relationshipRegistry.findFirst(identifier, &place)) {
    relationshipRegistry.remove(place);
    destroyWithElement(association);
  }
}

// The end that names the specialization is the subtype's. The relationship has done its service.
void connectSubtype(VornGeneralization& generalization, const End& first, const End& second) {
  const End& subtype = first.element.specializationId.empty() ? second : first;
  if (VornClass* table = entityRegistry.findFirst(subtype.element.entityId)) {
    getSubtypeGeneralizationRole(generalization, *table, true);
  } else {
    KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_GENERALIZATION.log(*importLog);
  }
  destroyRelationship(first.element.relationshipId);
  first.element.inGeneralization = true;
  second.element.inGeneralization = true;
}

void exchangeNames(VornAssociationRole& first, VornAssociationRole& second) {
  const VornString name = first.getName();
  first.setName(second.getName());
  second.setName(name);
}

void connectAssociation(const End& first, const End& second) {
  VornAssociation* association = relationshipRegistry.findFirst(first.element.relationshipId);
  VornClass* firstTable = entityRegistry.findFirst(first.element.entityId);
  VornClass* secondTable = entityRegistry.findFirst(second.element.entityId);
  if (association == nullptr || firstTable == nullptr || secondTable == nullptr) {
    KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP.log(*importLog);
    return;
  }
  if (roleNameAtDestination) {
    exchangeNames(first.role, second.role);
  }
  association->addAssociationRole(&first.role);
  first.role.addAssociatedClass(firstTable);
  association->addAssociationRole(&second.role);
  second.role.addAssociatedClass(secondTable);
  designPackage->addNamespaceElementUniqueName(association, '/');
  mainDiagram->addModelElement(association);
}

void connectPair(const End& first, const End& second) {
  first.element.paired = true;
  second.element.paired = true;
  if (VornGeneralization* generalization = findSpecialization(first, second)) {
    connectSubtype(*generalization, first, second);
  } else {
    connectAssociation(first, second);
  }
}

}  // namespace

void connectRelationships() {
  for (VornAssociationRole* role : roleRegistry) {
    const End first(*role);
    if (first.element.paired || first.element.inGeneralization) {
      continue;
    }
    if (VornAssociationRole* opposite = roleRegistry.findFirst(first.element.oppositeRoleId)) {
      connectPair(first, End(*opposite));
    } else {
      KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP.log(*importLog);
    }
  }
}

}  // namespace silrdm
