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

class VornKey : public VornModelObject {
 public:
  VornOne<VornIndex> index;  // null while the key has none
  VornMany<VornAttribute> attributeCollection;

  // Adds the column behind those the key has; once is enough.
  void addAttribute(VornAttribute* attribute);
  // Unties the index, which is not destroyed. Returns whether there was one.
  bool removeIndex();

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornCandidateKey final : public VornKey {
 public:
  bool identifierKey = false;
  VornOne<VornClass> primaryOf;  // the class whose primary key this is, or null
  // The foreign keys that reference this key.
  VornMany<VornForeignKey> foreignKeyCollection;

  VornElementType getElementType() const override { return VornElementType::candidateKey; }

  void visitLinks(VornLinkVisitor& visitor) override;
};

// Leads from a column of the referenced key to the foreign key's column that stands for it under another
// name.
class VornAssociationRoleNameMap final : public VornModelObject {
 public:
  VornOne<VornAttribute> sourceAttribute;
  VornOne<VornAttribute> destinationAttribute;

  VornElementType getElementType() const override { return VornElementType::associationRoleNameMap; }
  void addSourceAttribute(VornAttribute* attribute);
  void addDestinationAttribute(VornAttribute* attribute);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornForeignKey final : public VornKey {
 public:
  VornOne<VornCandidateKey> candidateKey;              // the key it references
  VornOne<VornAssociationRole> associationRole;        // the end of the relationship that is at its own table
  VornOne<VornGeneralizationRole> generalizationRole;  // or the subtype it ties to its supertype
  VornOwned<VornAssociationRoleNameMap> roleNameMapCollection;

  VornElementType getElementType() const override { return VornElementType::foreignKey; }
  void addCandidateKey(VornCandidateKey* key);
  void addAssociationRole(VornAssociationRole* role);
  void addGeneralizationRole(VornGeneralizationRole* role);
  // Takes the map.
  void addAssociationRoleNameMap(VornAssociationRoleNameMap* map) { roleNameMapCollection.add(*this, *map); }

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornIndexMember final : public VornModelObject {
 public:
  VornSortOrderType::Value sortOrder = VornSortOrderType::ascending;
  std::int16_t position = 0;  // the 0-based place in the index; the last number stands for all from there on
  VornOne<VornAttribute> attribute;

  VornElementType getElementType() const override { return VornElementType::indexMember; }

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornIndex final : public VornNamespaceElement {
 public:
  bool unique = false;
  VornOne<VornKey> key;  // the key it implements, or null
  VornOwned<VornIndexMember> indexMemberCollection;

  VornElementType getElementType() const override { return VornElementType::index; }
  // Ties the index to `key`: each becomes the other's one.
  void addKey(VornKey* key);
  // Takes the member.
  void addIndexMember(VornIndexMember* member) { indexMemberCollection.add(*this, *member); }

  void visitLinks(VornLinkVisitor& visitor) override;
};
