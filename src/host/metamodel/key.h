// Keys of tables, the indexes that implement them, and the maps between differently named key columns.
#pragma once

#include <cstdint>

#include "host/metamodel/element.h"
#include "host/metamodel/enumerations.h"

class VornAssociationRole;
class VornAttribute;
class VornClass;
class VornForeignKey;
class VornGeneralizationRole;
class VornIndex;

class VornKey : public VornLinked<VornKey, VornModelObject> {
 public:
  VornOne<VornIndex> index;  // null while the key has none
  VornMany<VornAttribute> attributeCollection;
  static constexpr std::tuple kEnds = {&VornKey::index, &VornKey::attributeCollection};

  // Appends the column, unless the key has it already.
  void addAttribute(VornAttribute* attribute);
  // Unties the index, which is not destroyed. Returns whether there was one.
  bool removeIndex();
};

class VornCandidateKey final : public VornLinked<VornCandidateKey, VornKey> {
 public:
  bool identifierKey = false;
  VornOne<VornClass> primaryOf;  // the class whose primary key this is, or null
  // The foreign keys that reference this key.
  VornMany<VornForeignKey> foreignKeyCollection;
  static constexpr std::tuple kEnds = {&VornCandidateKey::primaryOf, &VornCandidateKey::foreignKeyCollection};

  static constexpr VornElementType kElementType = VornElementType::candidateKey;
  VornElementType getElementType() const override { return kElementType; }
};

// Maps a column of the referenced key to the foreign key's column with another name.
class VornAssociationRoleNameMap final : public VornLinked<VornAssociationRoleNameMap, VornModelObject> {
 public:
  VornOne<VornAttribute> sourceAttribute;
  VornOne<VornAttribute> destinationAttribute;
  static constexpr std::tuple kEnds = {&VornAssociationRoleNameMap::sourceAttribute,
                                       &VornAssociationRoleNameMap::destinationAttribute};

  static constexpr VornElementType kElementType = VornElementType::associationRoleNameMap;
  VornElementType getElementType() const override { return kElementType; }
  void addSourceAttribute(VornAttribute* attribute);
  void addDestinationAttribute(VornAttribute* attribute);
};

class VornForeignKey final : public VornLinked<VornForeignKey, VornKey> {
 public:
  VornOne<VornCandidateKey> candidateKey;              // the key it references
  VornOne<VornAssociationRole> associationRole;        // the end of the relationship that is at its own table
  VornOne<VornGeneralizationRole> generalizationRole;  // or the subtype it ties to its supertype
  VornOwned<VornAssociationRoleNameMap> roleNameMapCollection;
  static constexpr std::tuple kEnds = {&VornForeignKey::candidateKey, &VornForeignKey::associationRole,
                                       &VornForeignKey::generalizationRole,
                                       &VornForeignKey::roleNameMapCollection};

  static constexpr VornElementType kElementType = VornElementType::foreignKey;
  VornElementType getElementType() const override { return kElementType; }
  void addCandidateKey(VornCandidateKey* key);
  void addAssociationRole(VornAssociationRole* role);
  void addGeneralizationRole(VornGeneralizationRole* role);
  void addAssociationRoleNameMap(std::unique_ptr<VornAssociationRoleNameMap> map) {
    roleNameMapCollection.add(*this, std::move(map));
  }
};

class VornIndexMember final : public VornLinked<VornIndexMember, VornModelObject> {
 public:
  VornSortOrderType::Value sortOrder = VornSortOrderType::ascending;
  std::int16_t position =
      0;  // 0-based position in the index; the largest number is used for all from there on
  VornOne<VornAttribute> attribute;
  static constexpr std::tuple kEnds = {&VornIndexMember::attribute};

  static constexpr VornElementType kElementType = VornElementType::indexMember;
  VornElementType getElementType() const override { return kElementType; }
};

class VornIndex final : public VornLinked<VornIndex, VornNamespaceElement> {
 public:
  bool unique = false;
  VornOne<VornKey> key;  // the key it implements, or null
  VornOwned<VornIndexMember> indexMemberCollection;
  static constexpr std::tuple kEnds = {&VornIndex::key, &VornIndex::indexMemberCollection};

  static constexpr VornElementType kElementType = VornElementType::index;
  VornElementType getElementType() const override { return kElementType; }
  // Ties the index to `key`: each becomes the other's one.
  void addKey(VornKey* key);
  VornIndexMember& addIndexMember(std::unique_ptr<VornIndexMember> member) {
    return indexMemberCollection.add(*this, std::move(member));
  }
};
