#include <vector>

#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/casting.h"
#include "host/metamodel/classifier.h"

namespace silrdm {

namespace {

// Returns the column that a foreign key's column refers to; reports and returns null if it does not exist.
VornAttribute* findReferencedAttribute(Import& import, const SILRDMCombinationColumn& column) {
  const auto* referenced = import.combinationColumnRegistry.findFirst(column.referencedColumnId);
  VornAttribute* attribute =
      referenced == nullptr ? nullptr : import.attributeRegistry.findFirst(referenced->attributeId);
  if (attribute == nullptr) {
    import.report(Irregularity::keyColumnWithoutReference, column, column.referencedColumnId);
  }
  return attribute;
}

// Maps two paired columns to each other if their names differ.
void mapNames(VornForeignKey& key, VornAttribute& source, VornAttribute& destination) {
  if (source.getName() == destination.getName()) {
    return;
  }
  auto map = std::make_unique<VornAssociationRoleNameMap>();
  map->addSourceAttribute(&source);
  map->addDestinationAttribute(&destination);
  key.addAssociationRoleNameMap(std::move(map));
}

VornIndexMember* addIndexMember(VornIndex& index, VornAttribute& attribute, bool ascending) {
  auto member = std::make_unique<VornIndexMember>();
  attribute.addIndexMember(member.get());
  const auto order = ascending ? VornSortOrderType::ascending : VornSortOrderType::descending;
  VornSortOrderType::isValid(order);
  member->sortOrder = order;
  return &index.addIndexMember(std::move(member));
}

// Connects a combination column and returns its new index member; returns null if its column or key does not
// exist.
VornIndexMember* connectColumn(Import& import, const SILRDMCombinationColumn& column) {
  VornAttribute* attribute = import.attributeRegistry.findFirst(column.attributeId);
  VornKey* key = import.combinationRegistry.findFirst(column.combinationId);
  if (attribute == nullptr) {
    import.report(Irregularity::keyColumnWithoutColumn, column, column.attributeId);
    return nullptr;
  }
  if (key == nullptr) {
    import.report(Irregularity::keyColumnWithoutKey, column, column.combinationId);
    return nullptr;
  }
  if (key->getOwner() == nullptr) {
    import.report(Irregularity::keyColumnOfDroppedKey, column, column.combinationId);
  }
  key->addAttribute(attribute);
  if (key->getElementType() == VornElementType::foreignKey) {
    if (VornAttribute* referenced = findReferencedAttribute(import, column)) {
      mapNames(cast<VornForeignKey>(*key), *referenced, *attribute);
    }
  }
  return addIndexMember(*key->index, *attribute, column.ascending);
}

// Attaches each combination column to its index member. `members` is in the registry's order; null means
// none.
void handOverColumns(Import& import, const std::vector<VornIndexMember*>& members) {
  auto column = import.combinationColumnRegistry.begin();
  for (VornIndexMember* member : members) {
    if (member == nullptr) {
      ++column;
    } else {
      hang(import.combinationColumnRegistry.take(column), *member);
    }
  }
}

}  // namespace

// Combination columns refer to each other, so all stay in the registry until the last is connected.
void connectKeyMembers(Import& import) {
  std::vector<VornIndexMember*> members;
  members.reserve(import.combinationColumnRegistry.getCount());
  for (const SILRDMCombinationColumn* column : import.combinationColumnRegistry) {
    members.push_back(connectColumn(import, *column));
  }
  handOverColumns(import, members);
}

}  // namespace silrdm
