#include "host/metamodel/relationship.h"

void VornAssociationRole::addAssociatedClass(VornClass* associated) {
  VornLinks::connect(*this, associatedClass, *associated, associated->associationRoleCollection);
}

void VornAssociationRole::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReference(associatedClass);
  visitor.visitReferences(foreignKeyCollection);
}

void VornAssociationRole::visitTexts(VornTextVisitor& visitor) {
  VornModelObject::visitTexts(visitor);
  visitor.visit(multiplicity);
}

VornAssociation::~VornAssociation() {
  for (VornAssociationRole* role : roleCollection) {
    role->associatedClass.clear();
  }
}

void VornAssociation::addAssociationRole(VornAssociationRole* role) {
  VornLinks::connect(*this, roleCollection, *role, role->ownerEnd());
}

void VornAssociation::visitLinks(VornLinkVisitor& visitor) {
  VornRelationship::visitLinks(visitor);
  visitor.visitOwned(roleCollection);
}

void VornGeneralizationRole::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReference(associatedClass);
  visitor.visitReferences(foreignKeyCollection);
}

VornGeneralizationRole* VornGeneralization::addRole(VornGeneralizationRole::Kind kind,
                                                    VornClass* associated) {
  auto role = std::make_unique<VornGeneralizationRole>(kind);
  VornLinks::connect(*role, role->associatedClass, *associated, associated->generalizationRoleCollection);
  roleCollection.add(*this, *role);
  return role.release();
}

void VornGeneralization::visitLinks(VornLinkVisitor& visitor) {
  VornRelationship::visitLinks(visitor);
  visitor.visitOwned(roleCollection);
}
