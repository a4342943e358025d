// ForeignKeyGaps reports relationships for which no foreign key was generated.
#pragma once

#include <vector>

#include "bridge/import/import.h"

namespace silrdm {

class ForeignKeyGaps {
 public:
  // Records the model's relationships. Construct it before generation, while elements exist.
  explicit ForeignKeyGaps(Import& import);
  // Reports each relationship without a foreign key, with the reason. Call this after generation.
  void report() const;

 private:
  Import& import_;
  std::vector<RelationshipRecord> records_;  // in the order of the registry
};

}  // namespace silrdm
