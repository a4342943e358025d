// Relationships between tables: associations with their roles, and generalizations.
#pragma once

#include <array>
#include <unordered_map>

#include "host/metamodel/classifier.h"
#include "host/metamodel/enumerations.h"

class VornRelationship : public VornModelElement {};

// One end of an association.
class VornAssociationRole final : public VornModelObject {
 public:
  VornString multiplicity;
  VornReferentialActionType::Value referentialAction1 = VornReferentialActionType::unspecified;
  VornReferentialActionType::Value referentialAction2 = VornReferentialActionType::unspecified;
  VornReferentialActionType::Value referentialAction3 = VornReferentialActionType::unspecified;
  bool oneSide = false;
  VornAggregationType::Value aggregation = VornAggregationType::none;
  VornOne<VornClass> associatedClass;
  // The foreign keys that follow the association from this end.
  VornMany<VornForeignKey> foreignKeyCollection;

  VornElementType getElementType() const override { return VornElementType::associationRole; }
  // The role at the other end of the association; null when that has not just two.
  VornAssociationRole* getOpposite() const;
  // Attaches the role to `associated` in place of any class before.
  void addAssociatedClass(VornClass* associated);

  void visitLinks(VornLinkVisitor& visitor) override;
  void visitTexts(VornTextVisitor& visitor) override;
};

class VornAssociation final : public VornRelationship {
 public:
  // The roles, first role first. The association owns them, but a model's tear-down alone destroys them with
  // it.
  VornMany<VornAssociationRole> roleCollection;

  // Destroying an association detaches its roles from it and from their classes; they stay with whoever made
  // them.
  ~VornAssociation() override;

  VornElementType getElementType() const override { return VornElementType::association; }
  // Takes the role, from the association it was in, if any.
  void addAssociationRole(VornAssociationRole* role);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornGeneralization;

// One end of a generalization: its supertype or a subtype. Its generalization makes it.
class VornGeneralizationRole final : public VornModelObject {
 public:
  enum class Kind { supertype, subtype };

  const Kind kind;
  VornOne<VornClass> associatedClass;
  VornMany<VornForeignKey> foreignKeyCollection;

  ~VornGeneralizationRole() override;

  VornElementType getElementType() const override { return VornElementType::generalizationRole; }

  void visitLinks(VornLinkVisitor& visitor) override;

 private:
  friend class VornGeneralization;
  VornGeneralizationRole(Kind roleKind, const VornClass* associated) : kind(roleKind), madeFor_(associated) {}

  const VornClass* const madeFor_;  // where the generalization keeps it, even when the class is gone
};

class VornGeneralization final : public VornRelationship {
  // The roles by kind, then by the class they were made for. In front of the roles, which take themselves
  // out of it when they go.
  std::array<std::unordered_map<const VornClass*, VornGeneralizationRole*>, 2> rolesByClass_;

 public:
  // The roles in the order they were made.
  VornOwned<VornGeneralizationRole> roleCollection;

  VornElementType getElementType() const override { return VornElementType::generalization; }
  // Makes a role of that kind for the class, which has none yet, and owns it.
  VornGeneralizationRole* addRole(VornGeneralizationRole::Kind kind, VornClass* associated);
  // The role of that kind that the class has, or null. Constant time.
  VornGeneralizationRole* findRole(VornGeneralizationRole::Kind kind, const VornClass& associated) const;

  void visitLinks(VornLinkVisitor& visitor) override;

 private:
  friend class VornGeneralizationRole;
  void forget(const VornGeneralizationRole& role) noexcept;
};
