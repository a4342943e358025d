// Relationships between tables: associations with their roles, and generalizations.
#pragma once

#include <array>
#include <unordered_map>

#include "host/metamodel/classifier.h"
#include "host/metamodel/enumerations.h"

class VornRelationship : public VornModelElement {};

// One end of an association.
class VornAssociationRole final : public VornLinked<VornAssociationRole, VornModelObject> {
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
  static constexpr std::tuple kEnds = {&VornAssociationRole::associatedClass,
                                       &VornAssociationRole::foreignKeyCollection};

  static constexpr VornElementType kElementType = VornElementType::associationRole;
  VornElementType getElementType() const override { return kElementType; }
  // The role at the other end of the association; null when that has not just two.
  VornAssociationRole* getOpposite() const;
  // Attaches the role to `associated` in place of any class before.
  void addAssociatedClass(VornClass* associated);
  void visitTexts(VornTextVisitor& visitor) override;
};

class VornAssociation final : public VornLinked<VornAssociation, VornRelationship> {
 public:
  // The roles, first role first. The association owns them, but a model's tear-down alone destroys them with
  // it.
  VornHeld<VornAssociationRole> roleCollection;
  static constexpr std::tuple kEnds = {&VornAssociation::roleCollection};

  // Destroying an association detaches its roles from it and from their classes, but does not destroy them.
  ~VornAssociation() override;

  static constexpr VornElementType kElementType = VornElementType::association;
  VornElementType getElementType() const override { return kElementType; }
  // Takes the role, from the association it was in, if any.
  void addAssociationRole(VornAssociationRole* role);
};

class VornGeneralization;

// One end of a generalization: its supertype or a subtype. Its generalization makes it.
class VornGeneralizationRole final : public VornLinked<VornGeneralizationRole, VornModelObject> {
 public:
  enum class Kind { supertype, subtype };

  const Kind kind;
  VornOne<VornClass> associatedClass;
  VornMany<VornForeignKey> foreignKeyCollection;
  static constexpr std::tuple kEnds = {&VornGeneralizationRole::associatedClass,
                                       &VornGeneralizationRole::foreignKeyCollection};

  ~VornGeneralizationRole() override;

  static constexpr VornElementType kElementType = VornElementType::generalizationRole;
  VornElementType getElementType() const override { return kElementType; }

 private:
  friend class VornGeneralization;
  VornGeneralizationRole(Kind roleKind, const VornClass* associated) : kind(roleKind), madeFor_(associated) {}

  const VornClass* const madeFor_;  // where the generalization keeps it, even when the class is gone
};

class VornGeneralization final : public VornLinked<VornGeneralization, VornRelationship> {
  // The roles by kind, then by the class they were made for. In front of the roles, which take themselves
  // out of it when they go.
  std::array<std::unordered_map<const VornClass*, VornGeneralizationRole*>, 2> rolesByClass_;

 public:
  // The roles in the order they were made.
  VornOwned<VornGeneralizationRole> roleCollection;
  static constexpr std::tuple kEnds = {&VornGeneralization::roleCollection};

  static constexpr VornElementType kElementType = VornElementType::generalization;
  VornElementType getElementType() const override { return kElementType; }
  // Makes a role of that kind for the class, which has none yet, and owns it.
  VornGeneralizationRole* addRole(VornGeneralizationRole::Kind kind, VornClass* associated);
  // The role of that kind that the class has, or null. Constant time.
  VornGeneralizationRole* findRole(VornGeneralizationRole::Kind kind, const VornClass& associated) const;

 private:
  friend class VornGeneralizationRole;
  void forget(const VornGeneralizationRole& role) noexcept;
};
