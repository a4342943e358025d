#include "host/services/key_propagation.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/metamodel/casting.h"
#include "host/metamodel/position.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/type.h"
#include "host/services/child_tables.h"

namespace {

const VornAssociation& associationOf(const VornAssociationRole& role) {
  return cast<VornAssociation>(*role.getOwner());
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
  foreignKey->addCandidateKey(&key);
  foreignKey->addAssociationRole(&child);
  table.addIndex(std::move(index));
  return table.addKey(std::move(foreignKey));
}

// Appends a copy of another table's column to `table`.
VornAttribute& addCopy(VornClass& table, const VornAttribute& source, bool optional,
                       VornChildTables& children) {
  auto copy = std::make_unique<VornAttribute>();
  copy->VornStructuralFeature::operator=(source);
  copy->setPhysicalName(children.takePhysicalName(table, source.physicalName));
  copy->optional = optional;
  copy->position = positionBehind(table.getAttributeCount());
  if (source.type != nullptr) {
    copy->addType(source.type);
  }
  VornAttribute& added = *copy;
  table.addFeatureUniqueName(std::move(copy), '/');
  return added;
}

void addColumn(VornForeignKey& foreignKey, VornAttribute& source, VornAttribute& attribute) {
  foreignKey.addAttribute(&attribute);
  if (source.getName() != attribute.getName()) {
    auto map = std::make_unique<VornAssociationRoleNameMap>();
    map->addSourceAttribute(&source);
    map->addDestinationAttribute(&attribute);
    foreignKey.addAssociationRoleNameMap(std::move(map));
  }
  auto member = std::make_unique<VornIndexMember>();
  member->position = positionBehind(foreignKey.index->indexMemberCollection.count());
  attribute.addIndexMember(member.get());
  foreignKey.index->addIndexMember(std::move(member));
}

// The columns that foreign keys to one key can have.
class ColumnChooser {
 public:
  explicit ColumnChooser(const VornCandidateKey& key) : key_(key) {
    takeAllOf(key);
    for (const VornForeignKey* foreignKey : key.foreignKeyCollection) {
      takeAllOf(*foreignKey);
    }
  }

  // For each column of the key the first column of the same name that neither the key nor a foreign key to it
  // has, nor a column before; or null.
  std::vector<VornAttribute*> findCandidates(VornClass& table) {
    std::vector<VornAttribute*> candidates;
    std::unordered_set<const VornFeature*> chosen;
    std::size_t unnamed = 0;
    for (const VornAttribute* source : key_.attributeCollection) {
      VornFeature* column = nullptr;
      if (source->getName().empty()) {
        column = findFreeUnnamed(table, unnamed++);
      } else {
        // Columns of a table differ in their names, but for those without any.
        column = table.featureCollection.get(source->getName());
        column =
            column != nullptr && !taken_.contains(column) && chosen.insert(column).second ? column : nullptr;
      }
      candidates.push_back(cast<VornAttribute>(column));
    }
    return candidates;
  }

  void take(const VornAttribute& attribute) { taken_.insert(&attribute); }

 private:
  // Columns without a name: those found free, of which the first ones may have been taken since, and the one
  // where the search ended.
  struct Unnamed {
    std::deque<VornFeature*> free;
    VornFeature* last = nullptr;
  };

  void takeAllOf(const VornKey& key) {
    for (const VornAttribute* attribute : key.attributeCollection) {
      take(*attribute);
    }
  }

  // The free column without a name with the 0-based number `index`, or null.
  VornFeature* findFreeUnnamed(VornClass& table, std::size_t index) {
    auto& [free, last] = unnamed_[&table];
    while (!free.empty() && taken_.contains(free.front())) {
      free.pop_front();
    }
    while (free.size() <= index) {
      VornFeature* next =
          last == nullptr ? table.featureCollection.get("") : table.featureCollection.getNext(*last);
      if (next == nullptr) {
        return nullptr;
      }
      last = next;
      if (!taken_.contains(next)) {
        free.push_back(next);
      }
    }
    return free[index];
  }

  const VornCandidateKey& key_;
  std::unordered_set<const VornFeature*> taken_;
  std::unordered_map<const VornClass*, Unnamed> unnamed_;
};

// Whether the child's columns can be those of the foreign key, null for each that is to be copied. They
// cannot where a child of many rows per parent could only have one then, nor where every child would have to
// have a parent though that is optional.
bool areUsable(const std::vector<VornAttribute*>& candidates, const VornAssociationRole& child,
               bool isParentOptional, VornChildTables& children) {
  const auto isRequired = [](const VornAttribute* column) { return column != nullptr && !column->optional; };
  if (isParentOptional && std::ranges::all_of(candidates, isRequired)) {
    return false;
  }
  std::vector<const VornAttribute*> own;
  std::ranges::copy_if(candidates, std::back_inserter(own),
                       [](const VornAttribute* column) { return column != nullptr; });
  return child.oneSide || own.empty() || !children.hasKeyWithin(*child.associatedClass, own);
}

// Gives the foreign key, which is on the child's table, a column for each of the key's.
void addColumns(VornForeignKey& foreignKey, const VornCandidateKey& key, const VornAssociationRole& parent,
                const VornAssociationRole& child, ColumnChooser& columns, VornChildTables& children) {
  VornClass& table = *child.associatedClass;
  const bool isOptional = parseInteger(parent.multiplicity.view()) == 0;
  std::vector<VornAttribute*> candidates = columns.findCandidates(table);
  if (!areUsable(candidates, child, isOptional, children)) {
    std::ranges::fill(candidates, nullptr);
  }
  auto candidate = candidates.begin();
  for (VornAttribute* source : key.attributeCollection) {
    VornAttribute* own = *candidate++;
    VornAttribute& attribute = own != nullptr ? *own : addCopy(table, *source, isOptional, children);
    columns.take(attribute);
    addColumn(foreignKey, *source, attribute);
  }
}

}  // namespace

void updatePrimaryKeyOnClass(VornClass& table) {
  if (table.primaryCandidateKey != nullptr) {
    return;
  }
  for (VornKey* key : table.keyCollection) {
    if (key->getElementType() == VornElementType::candidateKey && key->attributeCollection.count() > 0) {
      auto* candidate = cast<VornCandidateKey>(key);
      if (candidate->identifierKey) {
        table.addPrimaryCandidateKey(candidate);
        return;
      }
    }
  }
}

void createForeignKeyOnAssociation(VornClass& parent, VornCandidateKey& key, VornChildTables& children) {
  ColumnChooser columns(key);
  for (VornAssociationRole* role : parent.associationRoleCollection) {
    VornAssociationRole* opposite = role->getOpposite();
    if (opposite == nullptr || !isParentSide(*role, *opposite) || hasForeignKey(*role, *opposite)) {
      continue;
    }
    VornForeignKey& foreignKey = addForeignKey(key, *role, *opposite);
    addColumns(foreignKey, key, *role, *opposite, columns, children);
  }
}
