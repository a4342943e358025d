// The model of a generated export: which tables there are, with which columns, keys and references.
//
// Its proportions are those of a large business application: half of the tables link two others, a few hold
// many columns, and a few are referred to by nearly everything.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Numbers that look random and are the same on every platform for the same seed.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t next();
  // From 0 to `bound` - 1.
  std::size_t below(std::size_t bound) { return static_cast<std::size_t>(next() % bound); }
  // From 0 up to, but not including, 1.
  double unit() { return static_cast<double>(next() >> 11) * 0x1p-53; }

 private:
  std::uint64_t state_;
};

// Each object's parts have the identifiers that follow its own.
using Identifier = std::uint32_t;

// A run of columns of one table.
struct ColumnRange {
  std::size_t first = 0;
  std::size_t count = 1;
};

struct PlannedKey {
  Identifier identifier = 0;  // then one for each column
  ColumnRange columns;
};

// A relationship with its two roles and its foreign key.
struct PlannedReference {
  Identifier relationship = 0;
  Identifier parentRole() const { return relationship + 1; }
  Identifier childRole() const { return relationship + 2; }
  Identifier foreignKey() const { return relationship + 3; }  // then one for each column
  std::size_t parent = 0;                                     // the table whose primary key is referred to
  ColumnRange columns;
};

struct PlannedTable {
  Identifier identifier = 0;
  Identifier column(std::size_t index) const { return identifier + 1 + static_cast<Identifier>(index); }
  std::size_t columnCount = 0;
  std::size_t mandatoryCount = 0;   // the columns behind them are optional
  std::size_t firstColumnName = 0;  // in the vocabulary; the names of the other columns follow it
  std::vector<PlannedKey> keys;     // the first one is the primary key
  std::vector<PlannedReference> references;
};

// `columns` is the average a table, at least 2. The identifiers begin with `firstIdentifier`.
std::vector<PlannedTable> planTables(std::size_t tables, double columns, Identifier firstIdentifier,
                                     Random& random);
