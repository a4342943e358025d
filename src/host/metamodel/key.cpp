#include "host/metamodel/key.h"

#include "host/metamodel/classifier.h"
#include "host/metamodel/relationship.h"

void VornKey::addAttribute(VornAttribute* attribute) {
  VornLinks::connect(*this, attributeCollection, *attribute, attribute->keyCollection);
}

bool VornKey::removeIndex() {
  const bool had = index.get() != nullptr;
  index.clear();
  return had;
}

void VornKey::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReference(index);
  visitor.visitReferences(attributeCollection);
}

void VornCandidateKey::visitLinks(VornLinkVisitor& visitor) {
  VornKey::visitLinks(visitor);
  visitor.visitReference(primaryOf);
  visitor.visitReferences(foreignKeyCollection);
}

void VornAssociationRoleNameMap::addSourceAttribute(VornAttribute* attribute) {
  VornLinks::connect(*this, sourceAttribute, *attribute, attribute->sourceRoleNameMapCollection);
}

void VornAssociationRoleNameMap::addDestinationAttribute(VornAttribute* attribute) {
  VornLinks::connect(*this, destinationAttribute, *attribute, attribute->destinationRoleNameMapCollection);
}

void VornAssociationRoleNameMap::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReference(sourceAttribute);
  visitor.visitReference(destinationAttribute);
}

void VornForeignKey::addCandidateKey(VornCandidateKey* key) {
  VornLinks::connect(*this, candidateKey, *key, key->foreignKeyCollection);
}

void VornForeignKey::addAssociationRole(VornAssociationRole* role) {
  VornLinks::connect(*this, associationRole, *role, role->foreignKeyCollection);
}

void VornForeignKey::addGeneralizationRole(VornGeneralizationRole* role) {
  VornLinks::connect(*this, generalizationRole, *role, role->foreignKeyCollection);
}

void VornForeignKey::visitLinks(VornLinkVisitor& visitor) {
  VornKey::visitLinks(visitor);
  visitor.visitReference(candidateKey);
  visitor.visitReference(associationRole);
  visitor.visitReference(generalizationRole);
  visitor.visitOwned(roleNameMapCollection);
}

void VornIndexMember::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReference(attribute);
}

void VornIndex::addKey(VornKey* newKey) {
  VornLinks::connect(*this, key, *newKey, newKey->index);
}

void VornIndex::visitLinks(VornLinkVisitor& visitor) {
  VornNamespaceElement::visitLinks(visitor);
  visitor.visitReference(key);
  visitor.visitOwned(indexMemberCollection);
}
