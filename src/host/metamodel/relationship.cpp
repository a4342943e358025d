#include "host/metamodel/relationship.h"

VornAssociationRole* VornAssociationRole::getOpposite() const {
  const auto* association = static_cast<const VornAssociation*>(getOwner());
  if (association == nullptr || association->roleCollection.count() != 2) {
    return nullptr;
  }
  VornAssociationRole* first = association->roleCollection[0];
  return first == this ? association->roleCollection[1] : first;
}

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

VornGeneralizationRole::~VornGeneralizationRole() {
  if (getOwner() != nullptr) {
    static_cast<VornGeneralization*>(getOwner())->forget(*this);
  }
}

void VornGeneralizationRole::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReference(associatedClass);
  visitor.visitReferences(foreignKeyCollection);
}

VornGeneralizationRole* VornGeneralization::addRole(VornGeneralizationRole::Kind kind,
                                                    VornClass* associated) {
  std::unique_ptr<VornGeneralizationRole> role(new VornGeneralizationRole(kind, associated));
  VornLinks::connect(*role, role->associatedClass, *associated, associated->generalizationRoleCollection);
  roleCollection.add(*this, *role);
  rolesByClass_[static_cast<std::size_t>(kind)][associated] = role.get();
  return role.release();
}

VornGeneralizationRole* VornGeneralization::findRole(VornGeneralizationRole::Kind kind,
                                                     const VornClass& associated) const {
  const auto& roles = rolesByClass_[static_cast<std::size_t>(kind)];
  const auto found = roles.find(&associated);
  // Another class may have stood where this one stands: its role has no class any more.
  const bool isRole = found != roles.end() && found->second->associatedClass == &associated;
  return isRole ? found->second : nullptr;
}

void VornGeneralization::forget(const VornGeneralizationRole& role) noexcept {
  auto& roles = rolesByClass_[static_cast<std::size_t>(role.kind)];
  const auto found = roles.find(role.madeFor_);
  if (found != roles.end() && found->second == &role) {
    roles.erase(found);
  }
}

void VornGeneralization::visitLinks(VornLinkVisitor& visitor) {
  VornRelationship::visitLinks(visitor);
  visitor.visitOwned(roleCollection);
}
