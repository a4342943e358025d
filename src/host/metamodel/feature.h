// Features: the columns of tables and views.
#pragma once

#include <cstdint>

#include "host/metamodel/element.h"

class VornAssociationRoleNameMap;
class VornIndexMember;
class VornKey;
class VornType;

class VornFeature : public VornLinked<VornFeature, VornModelObject> {
 public:
  // The feature's type, null while it has none.
  VornOne<VornType> type;
  static constexpr std::tuple kEnds = {&VornFeature::type};

  // Makes `type` the feature's type in place of any before.
  void addType(VornType* type);
};

class VornStructuralFeature : public VornFeature {
 public:
  VornString attributeText;
  bool optional = false;

  VornStructuralFeature() = default;
  // Copies name, physical name, description, attribute text, `optional` and the notes (as new notes); links,
  // the position and the general pointer stay what they were.
  VornStructuralFeature& operator=(const VornStructuralFeature& other);

  void visitTexts(VornTextVisitor& visitor) override;
};

// A column of a table.
class VornAttribute final : public VornLinked<VornAttribute, VornStructuralFeature> {
 public:
  std::int16_t position =
      0;  // 0-based position in the table; the largest number is used for all from there on
  VornMany<VornKey> keyCollection;
  VornMany<VornIndexMember> indexMemberCollection;
  VornMany<VornAssociationRoleNameMap> sourceRoleNameMapCollection;       // maps that lead from this column
  VornMany<VornAssociationRoleNameMap> destinationRoleNameMapCollection;  // maps that lead to it
  static constexpr std::tuple kEnds = {&VornAttribute::keyCollection, &VornAttribute::indexMemberCollection,
                                       &VornAttribute::sourceRoleNameMapCollection,
                                       &VornAttribute::destinationRoleNameMapCollection};

  static constexpr VornElementType kElementType = VornElementType::attribute;
  VornElementType getElementType() const override { return kElementType; }
  // Makes this the column of `member`, which its index owns.
  void addIndexMember(VornIndexMember* member);
};

// A column of a view.
class VornSQLViewAttribute final : public VornStructuralFeature {
 public:
  using VornStructuralFeature::operator=;

  static constexpr VornElementType kElementType = VornElementType::sqlViewAttribute;
  VornElementType getElementType() const override { return kElementType; }
};
