#include "host/bridgelib/key_propagation.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "host/metamodel/position.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/type.h"

namespace {

const VornAssociation& associationOf(const VornAssociationRole& role) {
  return static_cast<const VornAssociation&>(*role.getOwner());
}

bool isParentSide(const VornAssociationRole& role, const VornAssociationRole& opposite) {
  if (!role.oneSide || !opposite.oneSide) {
    return role.oneSide;
  }
  if (role.multiplicity == opposite.multiplicity) {
    return associationOf(role).roleCollection[0] == &role;
  }
  return role.multiplicity == "1" && opposite.multiplicity == "0..1";
}

bool hasForeignKey(const VornAssociationRole& role, const VornAssociationRole& opposite) {
  return role.foreignKeyCollection.count() > 0 || opposite.foreignKeyCollection.count() > 0;
}

// A foreign key on the child's table, with its index, without columns.
VornForeignKey& addForeignKey(VornCandidateKey& key, VornAssociationRole& parent,
                              VornAssociationRole& child) {
  const VornAssociation& association = associationOf(parent);
  VornClass& table = *child.associatedClass;
  auto foreignKey = std::make_unique<VornForeignKey>();
  foreignKey->setName(association.getName().empty()
                          ? table.getName() + "_" + parent.associatedClass->getName() + "_FK"
                          : association.getName());
  foreignKey->setPhysicalName(association.physicalName);
  auto index = std::make_unique<VornIndex>();
  index->setName(foreignKey->getName());
  index->setPhysicalName(foreignKey->physicalName);
  index->addKey(foreignKey.get());
  table.addIndex(index.get());
  index.release();
  table.addKey(foreignKey.get());
  foreignKey->addCandidateKey(&key);
  foreignKey->addAssociationRole(&child);
  return *foreignKey.release();
}

// A copy of the column of another table, behind the columns of `table`.
VornAttribute& addCopy(VornClass& table, const VornAttribute& source, bool optional) {
  auto copy = std::make_unique<VornAttribute>();
  static_cast<VornStructuralFeature&>(*copy) = source;
  copy->optional = optional;
  copy->position = positionBehind(table.getAttributeCount());
  if (source.type != nullptr) {
    copy->addType(source.type);
  }
  table.addFeatureUniqueName(copy.get(), '/');
  return *copy.release();
}

void addColumn(VornForeignKey& foreignKey, VornAttribute& source, VornAttribute& attribute) {
  foreignKey.addAttribute(&attribute);
  if (source.getName() != attribute.getName()) {
    auto map = std::make_unique<VornAssociationRoleNameMap>();
    map->addSourceAttribute(&source);
    map->addDestinationAttribute(&attribute);
    foreignKey.addAssociationRoleNameMap(map.get());
    map.release();
  }
  auto member = std::make_unique<VornIndexMember>();
  member->position = positionBehind(foreignKey.index->indexMemberCollection.count());
  attribute.addIndexMember(member.get());
  foreignKey.index->addIndexMember(member.get());
  member.release();
}

// The columns that foreign keys to one key can have.
class ColumnChooser {
 public:
  explicit ColumnChooser(const VornCandidateKey& key) {
    takeAllOf(key);
    for (const VornForeignKey* foreignKey : key.foreignKeyCollection) {
      takeAllOf(*foreignKey);
    }
  }

  // The first column of that name that neither the key nor a foreign key to it has, or null. Columns of a
  // table differ in their names, but for those without any: there a search goes on where the last one ended.
  VornAttribute* findFree(VornClass& table, const VornString& name) {
    VornFeature*& lastUnnamed = lastUnnamed_[&table];
    VornFeature* column =
        name.empty() && lastUnnamed != nullptr ? lastUnnamed : table.featureCollection.get(name);
    while (column != nullptr && taken_.contains(column)) {
      lastUnnamed = name.empty() ? column : lastUnnamed;
      column = table.featureCollection.getNext(*column);
    }
    return static_cast<VornAttribute*>(column);
  }

  void take(const VornAttribute& attribute) { taken_.insert(&attribute); }

 private:
  void takeAllOf(const VornKey& key) {
    for (const VornAttribute* attribute : key.attributeCollection) {
      take(*attribute);
    }
  }

  std::unordered_set<const VornFeature*> taken_;
  std::unordered_map<const VornClass*, VornFeature*> lastUnnamed_;  // all of them up to here are taken
};

// Gives the foreign key, which is on `table`, a column for each of the key's.
void addColumns(VornForeignKey& foreignKey, const VornCandidateKey& key, VornClass& table, bool optional,
                ColumnChooser& columns) {
  for (VornAttribute* source : key.attributeCollection) {
    VornAttribute* attribute = columns.findFree(table, source->getName());
    if (attribute == nullptr) {
      attribute = &addCopy(table, *source, optional);
    }
    columns.take(*attribute);
    addColumn(foreignKey, *source, *attribute);
  }
}

}  // namespace

void updatePrimaryKeyOnClass(VornClass& table) {
  if (table.primaryCandidateKey != nullptr) {
    return;
  }
  for (VornKey* key : table.keyCollection) {
    if (key->getElementType() == VornElementType::candidateKey && key->attributeCollection.count() > 0) {
      auto* candidate = static_cast<VornCandidateKey*>(key);
      if (candidate->identifierKey) {
        table.addPrimaryCandidateKey(candidate);
        return;
      }
    }
  }
}

void createForeignKeyOnAssociation(VornClass& parent, VornCandidateKey& key) {
  ColumnChooser columns(key);
  for (VornAssociationRole* role : parent.associationRoleCollection) {
    VornAssociationRole* opposite = role->getOpposite();
    if (opposite == nullptr || !isParentSide(*role, *opposite) || hasForeignKey(*role, *opposite)) {
      continue;
    }
    VornForeignKey& foreignKey = addForeignKey(key, *role, *opposite);
    const bool isOptional = parseInteger(role->multiplicity.view()) == 0;
    addColumns(foreignKey, key, *opposite->associatedClass, isOptional, columns);
  }
}
