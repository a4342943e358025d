#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/casting.h"
#include "host/metamodel/relationship.h"
#include "host/services/generalization_roles.h"

namespace silrdm {

namespace {

// Adds the index first: as long as the key has no owner, its registry destroys both, even if the table owns
// the index.
void place(VornKey& key, VornClass& table) {
  table.addIndex(key.index);
  table.addKey(&key);
}

void connectCandidateKey(Import& import, VornCandidateKey& key, const SILRDMCombination& element) {
  VornClass* table = import.entityRegistry.findFirst(element.entityId);
  if (table == nullptr) {
    import.report(Irregularity::keyWithoutTable, key, element.entityId);
    return;
  }
  place(key, *table);
  if (element.primary) {
    table->addPrimaryCandidateKey(&key);
  }
}

// Adds the key to the subtype table of a supertype/subtype link. Returns false if there is none.
bool placeOnSubtype(Import& import, VornForeignKey& key, const SILRDMAssociationRole& subtype) {
  VornGeneralization* generalization = import.specializationRegistry.findFirst(subtype.specializationId);
  VornClass* table = import.entityRegistry.findFirst(subtype.entityId);
  if (generalization == nullptr || table == nullptr) {
    return false;
  }
  place(key, *table);
  key.addGeneralizationRole(getSubtypeGeneralizationRole(*generalization, *table, true));
  return true;
}

// Adds the key to the table of an association's role. Returns false if the association was not connected.
bool placeAtRole(VornForeignKey& key, VornAssociationRole& role) {
  if (role.associatedClass == nullptr) {
    return false;
  }
  place(key, *role.associatedClass);
  key.addAssociationRole(&role);
  return true;
}

// A foreign key names the role at the table it refers to and belongs to the table at the opposite one.
void connectForeignKey(Import& import, VornForeignKey& key, const SILRDMCombination& element) {
  VornKey* referenced = import.combinationRegistry.findFirst(element.referencedCombinationId);
  const VornAssociationRole* named = import.roleRegistry.findFirst(element.roleId);
  if (referenced == nullptr || referenced->getElementType() != VornElementType::candidateKey) {
    import.report(Irregularity::foreignKeyWithoutKey, key, element.referencedCombinationId);
    return;
  }
  if (named == nullptr) {
    import.report(Irregularity::foreignKeyWithoutRole, key, element.roleId);
    return;
  }
  const auto& namedElement = *elementOf<SILRDMAssociationRole>(*named);
  VornAssociationRole* opposite = import.roleRegistry.findFirst(namedElement.oppositeRoleId);
  if (opposite == nullptr) {
    import.report(Irregularity::foreignKeyWithoutOppositeRole, key, namedElement.oppositeRoleId);
    return;
  }
  const bool isPlaced = namedElement.inGeneralization
                            ? placeOnSubtype(import, key, *elementOf<SILRDMAssociationRole>(*opposite))
                            : placeAtRole(key, *opposite);
  if (isPlaced) {
    key.addCandidateKey(cast<VornCandidateKey>(referenced));
  } else {
    import.report(Irregularity::foreignKeyWithoutTable, key, namedElement.oppositeRoleId);
  }
}

}  // namespace

void connectKeys(Import& import) {
  for (VornKey* key : import.combinationRegistry) {
    const auto& element = *elementOf<SILRDMCombination>(*key);
    if (key->getElementType() == VornElementType::candidateKey) {
      connectCandidateKey(import, cast<VornCandidateKey>(*key), element);
    } else {
      connectForeignKey(import, cast<VornForeignKey>(*key), element);
    }
  }
}

}  // namespace silrdm
