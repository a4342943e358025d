#include "bridge/finishing/foreign_key_gaps.h"

#include <algorithm>

#include "host/metamodel/relationship.h"

namespace silrdm {

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

void reportGap(Import& import, const VornAssociation& association, const RelationshipRecord& record) {
  const Subject subject(record.place, record.identifier.view(), record.name.view());
  if (association.roleCollection.count() != 2) {
    import.report(Irregularity::relationshipWithoutTwoEnds, subject);
    return;
  }
  bool hasOneSide = false;
  for (const VornAssociationRole* role : association.roleCollection) {
    if (!role->oneSide) {
      continue;
    }
    hasOneSide = true;
    if (role->associatedClass->primaryCandidateKey == nullptr) {
      import.report(Irregularity::relationshipWithoutPrimaryKey, subject, role->associatedClass->getName());
      return;
    }
  }
  import.report(hasOneSide ? Irregularity::relationshipWithoutKey : Irregularity::manyToManyWithoutKey,
                subject);
}

}  // namespace

ForeignKeyGaps::ForeignKeyGaps(Import& import) : import_(import) {
  for (const VornAssociation* association : import.relationshipRegistry) {
    if (isConnected(*association)) {
      records_.emplace_back(*association);
    }
  }
}

void ForeignKeyGaps::report() const {
  auto record = records_.begin();
  for (const VornAssociation* association : import_.relationshipRegistry) {
    if (isConnected(*association)) {
      if (!hasForeignKey(*association)) {
        reportGap(import_, *association, *record);
      }
      ++record;
    }
  }
  for (const RelationshipRecord& link : import_.subtypeLinks) {
    import_.report(Irregularity::subtypeLinkWithoutKey,
                   Subject(link.place, link.identifier.view(), link.name.view()));
  }
}

}  // namespace silrdm
