#include "host/metamodel/key.h"

#include "host/metamodel/link_pairs.h"

void VornKey::addAttribute(VornAttribute* attribute) {
  connect<&VornKey::attributeCollection>(*this, *attribute);
}

bool VornKey::removeIndex() {
  const bool had = index.get() != nullptr;
  index.clear();
  return had;
}

void VornAssociationRoleNameMap::addSourceAttribute(VornAttribute* attribute) {
  connect<&VornAssociationRoleNameMap::sourceAttribute>(*this, *attribute);
}

void VornAssociationRoleNameMap::addDestinationAttribute(VornAttribute* attribute) {
  connect<&VornAssociationRoleNameMap::destinationAttribute>(*this, *attribute);
}

void VornForeignKey::addCandidateKey(VornCandidateKey* key) {
  connect<&VornForeignKey::candidateKey>(*this, *key);
}

void VornForeignKey::addAssociationRole(VornAssociationRole* role) {
  connect<&VornForeignKey::associationRole>(*this, *role);
}

void VornForeignKey::addGeneralizationRole(VornGeneralizationRole* role) {
  connect<&VornForeignKey::generalizationRole>(*this, *role);
}

void VornIndex::addKey(VornKey* newKey) {
  connect<&VornIndex::key>(*this, *newKey);
}
