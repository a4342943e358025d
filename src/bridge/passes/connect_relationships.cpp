#include "bridge/elements/registries.h"
#include "bridge/finishing/foreign_key_gaps.h"
#include "bridge/import/import_state.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/package.h"
#include "host/metamodel/relationship.h"
#include "host/services/generalization_roles.h"

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

void destroyRelationship(const VornString& identifier, const VornString& specializationId) {
  auto place = relationshipRegistry.begin();
  if (VornAssociation* association = relationshipRegistry.findFirst(identifier, &place)) {
    tell(Irregularity::subtypeLink, *association, specializationId);
    if (isListening) {
      subtypeLinks.emplace_back(*association);
    }
    relationshipRegistry.remove(place);
    destroyWithElement(association);
  }
}

// The end that names a specialization, the first where both do, is the subtype's. The relationship has done
// its service.
void connectSubtype(VornGeneralization& generalization, const End& first, const End& second) {
  const End& subtype = first.element.specializationId.empty() ? second : first;
  if (VornClass* table = entityRegistry.findFirst(subtype.element.entityId)) {
    if (table ==
        entityRegistry.findFirst(elementOf<SILRDMGeneralization>(generalization)->supertypeEntityId)) {
      tell(Irregularity::ownSupertype, subtype.role, subtype.element.entityId);
    }
    getSubtypeGeneralizationRole(generalization, *table, true);
  } else {
    tell(Irregularity::subtypeWithoutTable, subtype.role, subtype.element.entityId);
  }
  destroyRelationship(first.element.relationshipId, subtype.element.specializationId);
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
  if (association == nullptr) {
    tell(Irregularity::roleWithoutRelationship, first.role, first.element.relationshipId);
    return;
  }
  if (firstTable == nullptr || secondTable == nullptr) {
    const End& end = firstTable == nullptr ? first : second;
    tell(Irregularity::roleWithoutTable, end.role, end.element.entityId);
    return;
  }
  if (roleNameAtDestination) {
    exchangeNames(first.role, second.role);
  }
  association->addAssociationRole(&first.role);
  first.role.addAssociatedClass(firstTable);
  association->addAssociationRole(&second.role);
  second.role.addAssociatedClass(secondTable);
  addUniquelyNamed(*association, [&] { designPackage->addNamespaceElementUniqueName(association, '/'); });
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
    if (first.element.paired) {
      continue;
    }
    if (VornAssociationRole* opposite = roleRegistry.findFirst(first.element.oppositeRoleId)) {
      connectPair(first, End(*opposite));
    } else {
      tell(Irregularity::roleWithoutOpposite, *role, first.element.oppositeRoleId);
    }
  }
  // Only now is it sure that no other role has connected it.
  for (const VornAssociation* association : relationshipRegistry) {
    if (association->getOwner() == nullptr) {
      tell(Irregularity::unconnectedRelationship, *association);
    }
  }
}

}  // namespace silrdm
