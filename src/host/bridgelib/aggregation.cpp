#include "host/bridgelib/aggregation.h"

#include "host/metamodel/relationship.h"

namespace {

bool isPartOfPrimaryKey(const VornForeignKey& foreignKey) {
  const auto* table = static_cast<const VornClass*>(foreignKey.getOwner());
  const VornCandidateKey* primaryKey = table == nullptr ? nullptr : table->primaryCandidateKey.get();
  if (primaryKey == nullptr || foreignKey.attributeCollection.count() == 0) {
    return false;
  }
  for (const VornAttribute* attribute : foreignKey.attributeCollection) {
    if (!primaryKey->attributeCollection.contains(*attribute)) {
      return false;
    }
  }
  return true;
}

// Whether the children at this end are identified by their parents.
bool isDependentEnd(const VornAssociationRole& child) {
  for (const VornForeignKey* foreignKey : child.foreignKeyCollection) {
    if (isPartOfPrimaryKey(*foreignKey)) {
      return true;
    }
  }
  return false;
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
