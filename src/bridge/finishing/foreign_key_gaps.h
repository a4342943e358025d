// The relationships that get no foreign key where foreign keys are generated. For reports.
#pragma once

#include <vector>

#include "bridge/import/import.h"

namespace silrdm {

class ForeignKeyGaps {
 public:
  // Notes the model's relationships. To be made before generation, while they have their elements.
  explicit ForeignKeyGaps(Import& import);
  // Reports each that no foreign key is tied to, and why. To be called after generation.
  void report() const;

 private:
  Import& import_;
  std::vector<RelationshipRecord> records_;  // in the order of the registry
};

}  // namespace silrdm
