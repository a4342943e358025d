#include "host/metamodel/relationship.h"

#include "host/metamodel/casting.h"
#include "host/metamodel/link_pairs.h"

VornAssociationRole* VornAssociationRole::getOpposite() const {
  const auto* association = cast<VornAssociation>(getOwner());
  if (association == nullptr || association->roleCollection.count() != 2) {
    return nullptr;
  }
  VornAssociationRole* first = association->roleCollection[0];
  return first == this ? association->roleCollection[1] : first;
}

void VornAssociationRole::addAssociatedClass(VornClass* associated) {
  connect<&VornAssociationRole::associatedClass>(*this, *associated);
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
  roleCollection.adopt(*this, *role);
}

VornGeneralizationRole::~VornGeneralizationRole() {
  if (getOwner() != nullptr) {
    cast<VornGeneralization>(getOwner())->forget(*this);
  }
}

VornGeneralizationRole* VornGeneralization::addRole(VornGeneralizationRole::Kind kind,
                                                    VornClass* associated) {
  std::unique_ptr<VornGeneralizationRole> made(new VornGeneralizationRole(kind, associated));
  connect<&VornGeneralizationRole::associatedClass>(*made, *associated);
  VornGeneralizationRole& role = roleCollection.add(*this, std::move(made));
  rolesByClass_[static_cast<std::size_t>(kind)][associated] = &role;
  return &role;
}

VornGeneralizationRole* VornGeneralization::findRole(VornGeneralizationRole::Kind kind,
                                                     const VornClass& associated) const {
  const auto& roles = rolesByClass_[static_cast<std::size_t>(kind)];
  const auto found = roles.find(&associated);
  // A destroyed class may have had the same address: its role has no class any more.
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
