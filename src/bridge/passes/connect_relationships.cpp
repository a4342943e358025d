#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/package.h"
#include "host/metamodel/relationship.h"
#include "host/services/generalization_roles.h"

namespace silrdm {

namespace {

// One end of a relationship as the export has it.
struct End {
  explicit End(VornAssociationRole& associationRole)
      : role(associationRole), element(*elementOf<SILRDMAssociationRole>(associationRole)) {}

  VornAssociationRole& role;
  SILRDMAssociationRole& element;
};

// Returns the specialization that one of the two ends names, or null.
VornGeneralization* findSpecialization(Import& import, const End& first, const End& second) {
  VornGeneralization* named = import.specializationRegistry.findFirst(first.element.specializationId);
  return named != nullptr ? named : import.specializationRegistry.findFirst(second.element.specializationId);
}

void destroyRelationship(Import& import, const VornString& identifier, const VornString& specializationId) {
  auto place = import.relationshipRegistry.begin();
  if (VornAssociation* association = import.relationshipRegistry.findFirst(identifier, &place)) {
    import.report(Irregularity::subtypeLink, *association, specializationId);
    if (import.reporter.reportsIrregularities()) {
      import.subtypeLinks.emplace_back(*association);
    }
    import.relationshipRegistry.take(place).reset();
  }
}

// The end that names a specialization is the subtype; if both do, the first. The relationship is no longer
// needed.
void connectSubtype(Import& import, VornGeneralization& generalization, const End& first, const End& second) {
  const End& subtype = first.element.specializationId.empty() ? second : first;
  if (VornClass* table = import.entityRegistry.findFirst(subtype.element.entityId)) {
    if (table ==
        import.entityRegistry.findFirst(elementOf<SILRDMGeneralization>(generalization)->supertypeEntityId)) {
      import.report(Irregularity::ownSupertype, subtype.role, subtype.element.entityId);
    }
    getSubtypeGeneralizationRole(generalization, *table, true);
  } else {
    import.report(Irregularity::subtypeWithoutTable, subtype.role, subtype.element.entityId);
  }
  destroyRelationship(import, first.element.relationshipId, subtype.element.specializationId);
  first.element.inGeneralization = true;
  second.element.inGeneralization = true;
}

void exchangeNames(VornAssociationRole& first, VornAssociationRole& second) {
  const VornString name = first.getName();
  first.setName(second.getName());
  second.setName(name);
}

void connectAssociation(Import& import, const End& first, const End& second) {
  VornAssociation* association = import.relationshipRegistry.findFirst(first.element.relationshipId);
  VornClass* firstTable = import.entityRegistry.findFirst(first.element.entityId);
  VornClass* secondTable = import.entityRegistry.findFirst(second.element.entityId);
  if (association == nullptr) {
    import.report(Irregularity::roleWithoutRelationship, first.role, first.element.relationshipId);
    return;
  }
  if (firstTable == nullptr || secondTable == nullptr) {
    const End& end = firstTable == nullptr ? first : second;
    import.report(Irregularity::roleWithoutTable, end.role, end.element.entityId);
    return;
  }
  if (import.options.roleNameAtDestination) {
    exchangeNames(first.role, second.role);
  }
  association->addAssociationRole(&first.role);
  first.role.addAssociatedClass(firstTable);
  association->addAssociationRole(&second.role);
  second.role.addAssociatedClass(secondTable);
  addUniquelyNamed(import.reporter, *association,
                   [&] { import.designPackage->addNamespaceElementUniqueName(association, '/'); });
  import.mainDiagram->addModelElement(association);
}

void connectPair(Import& import, const End& first, const End& second) {
  first.element.paired = true;
  second.element.paired = true;
  if (VornGeneralization* generalization = findSpecialization(import, first, second)) {
    connectSubtype(import, *generalization, first, second);
  } else {
    connectAssociation(import, first, second);
  }
}

}  // namespace

void connectRelationships(Import& import) {
  for (VornAssociationRole* role : import.roleRegistry) {
    const End first(*role);
    if (first.element.paired) {
      continue;
    }
    if (VornAssociationRole* opposite = import.roleRegistry.findFirst(first.element.oppositeRoleId)) {
      connectPair(import, first, End(*opposite));
    } else {
      import.report(Irregularity::roleWithoutOpposite, *role, first.element.oppositeRoleId);
    }
  }
  // Reported last, because any other role may connect a relationship.
  for (const VornAssociation* association : import.relationshipRegistry) {
    if (association->getOwner() == nullptr) {
      import.report(Irregularity::unconnectedRelationship, *association);
    }
  }
}

}  // namespace silrdm
