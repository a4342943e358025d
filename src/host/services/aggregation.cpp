#include "host/services/aggregation.h"

#include <algorithm>

#include "host/metamodel/casting.h"
#include "host/metamodel/relationship.h"

namespace {

bool isPartOfPrimaryKey(const VornForeignKey& foreignKey) {
  const auto* table = cast<VornClass>(foreignKey.getOwner());
  const VornCandidateKey* primaryKey = table == nullptr ? nullptr : table->primaryCandidateKey.get();
  if (primaryKey == nullptr || foreignKey.attributeCollection.count() == 0) {
    return false;
  }
  return std::ranges::all_of(foreignKey.attributeCollection, [&](const VornAttribute* attribute) {
    return primaryKey->attributeCollection.contains(*attribute);
  });
}

// Whether the children at this end are identified by their parents.
bool isDependentEnd(const VornAssociationRole& child) {
  return std::ranges::any_of(child.foreignKeyCollection, [](const VornForeignKey* foreignKey) {
    return isPartOfPrimaryKey(*foreignKey);
  });
}

VornAggregationType::Value aggregationOfParent(const VornAssociationRole& child) {
  return isDependentEnd(child) ? VornAggregationType::composite : VornAggregationType::none;
}

}  // namespace

void setAggregationProperty(VornAssociation& association) {
  const auto& roles = association.roleCollection;
  if (roles.count() == 2) {
    roles[0]->aggregation = aggregationOfParent(*roles[1]);
    roles[1]->aggregation = aggregationOfParent(*roles[0]);
  }
}
