#include "bridge/finishing/foreign_key_gaps.h"

#include <algorithm>

#include "bridge/elements/registries.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

std::vector<RelationshipRecord> subtypeLinks;

namespace {

// Only these are part of the model.
bool isConnected(const VornAssociation& association) {
  return association.getOwner() != nullptr;
}

bool hasForeignKey(const VornAssociation& association) {
  return std::ranges::any_of(association.roleCollection, [](const VornAssociationRole* role) {
    return role->foreignKeyCollection.count() > 0;
  });
}

void reportGap(const VornAssociation& association, const RelationshipRecord& record) {
  const Subject subject(record.place, record.identifier.view(), record.name.view());
  if (association.roleCollection.count() != 2) {
    tell(Irregularity::relationshipWithoutTwoEnds, subject);
    return;
  }
  bool hasOneSide = false;
  for (const VornAssociationRole* role : association.roleCollection) {
    if (!role->oneSide) {
      continue;
    }
    hasOneSide = true;
    if (role->associatedClass->primaryCandidateKey == nullptr) {
      tell(Irregularity::relationshipWithoutPrimaryKey, subject, role->associatedClass->getName());
      return;
    }
  }
  tell(hasOneSide ? Irregularity::relationshipWithoutKey : Irregularity::manyToManyWithoutKey, subject);
}

}  // namespace

RelationshipRecord::RelationshipRecord(const VornAssociation& association)
    : place(elementOf(association)->place),
      identifier(elementOf(association)->identifier),
      name(association.getName()) {
}

ForeignKeyGaps::ForeignKeyGaps() {
  for (const VornAssociation* association : relationshipRegistry) {
    if (isConnected(*association)) {
      records_.emplace_back(*association);
    }
  }
}

void ForeignKeyGaps::report() const {
  auto record = records_.begin();
  for (const VornAssociation* association : relationshipRegistry) {
    if (isConnected(*association)) {
      if (!hasForeignKey(*association)) {
        reportGap(*association, *record);
      }
      ++record;
    }
  }
  for (const RelationshipRecord& link : subtypeLinks) {
    tell(Irregularity::subtypeLinkWithoutKey, Subject(link.place, link.identifier.view(), link.name.view()));
  }
}

}  // namespace silrdm
