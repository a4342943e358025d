// The relationships that get no foreign key where foreign keys are generated. For logs that listen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bridge/reader/field_reader.h"
#include "host/base/text.h"

class VornAssociation;

namespace silrdm {

// A relationship's record, which outlives its element.
struct RelationshipRecord {
  explicit RelationshipRecord(const VornAssociation& association);

  RecordPlace place;
  VornString identifier;
  VornString name;
};

// The relationships that became subtypes and are gone; kept for logs that listen.
extern std::vector<RelationshipRecord> subtypeLinks;

class ForeignKeyGaps {
 public:
  // Notes the model's relationships. To be called before generation, while they have their elements.
  ForeignKeyGaps();
  // Reports each that no foreign key is tied to, and why. To be called after generation.
  void report() const;

 private:
  std::vector<RelationshipRecord> records_;  // in the order of the registry
};

}  // namespace silrdm
