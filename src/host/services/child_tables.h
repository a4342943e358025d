// VornChildTables: what key propagation asks of the tables that get foreign keys.
//
// It keeps answers from one call to the next, so that a table with many foreign keys is not looked through
// for each of them. While one is in use, candidate keys must not change, and columns only through key
// propagation.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/metamodel/classifier.h"

// The candidate keys of one table that have columns.
class VornCandidateKeySets {
 public:
  explicit VornCandidateKeySets(const VornClass& table);

  // Whether `columns` contain all columns of one of the keys. Keys that do not begin with one of the columns
  // are skipped together, so this takes about as long as there are columns.
  bool hasKeyWithin(std::span<const VornAttribute* const> columns) const;

 private:
  using Ranks = std::vector<std::uint32_t>;

  std::unordered_map<const VornAttribute*, std::uint32_t> ranks_;  // columns of few keys have the low ranks
  std::vector<Ranks> keys_;                                        // sorted, and each in itself
};

class VornChildTables {
 public:
  // Whether `columns` contain all columns of some candidate key of the table that has any.
  bool hasKeyWithin(const VornClass& table, std::span<const VornAttribute* const> columns);

  // `wanted` where it is empty or no column of the table has it as its physical name; otherwise with "_" and
  // the smallest integer from 2 up with which none has it. The case of ASCII letters does not count. The
  // caller gives the name to a column that it adds to the table.
  VornString takePhysicalName(const VornClass& table, const VornString& wanted);

 private:
  struct PhysicalNames {
    std::unordered_set<std::string> taken;                // in upper case, as the names below
    std::unordered_map<std::string, std::uint32_t> next;  // all lower integers are taken
  };

  std::unordered_map<const VornClass*, VornCandidateKeySets> keySets_;
  std::unordered_map<const VornClass*, PhysicalNames> physicalNames_;
};
