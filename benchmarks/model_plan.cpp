#include "model_plan.h"

#include <algorithm>
#include <stdexcept>

std::uint64_t Random::next() {
  // SplitMix64.
  std::uint64_t value = state_ += 0x9E3779B97F4A7C15;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
  return value ^ (value >> 31);
}

namespace {

constexpr std::size_t kColumnVocabulary = 700;
constexpr std::size_t kMostIdentifiers = 99'999'999;  // of eight digits
constexpr double kLinkColumns = 2 + 1.0 / 3;  // two keys, and every third time something said of the link

class Planner {
 public:
  Planner(std::size_t tables, double columns, Identifier firstIdentifier, Random& random)
      : tables_(tables), columns_(columns), next_(firstIdentifier), random_(random) {}

  std::vector<PlannedTable> plan() {
    for (std::size_t index = 0; index < tables_.size(); ++index) {
      planColumnsAndKeys(tables_[index], isLink(index));
    }
    for (std::size_t index = 0; index < tables_.size(); ++index) {
      planReferences(tables_[index], isLink(index));
    }
    return std::move(tables_);
  }

 private:
  static bool isLink(std::size_t index) { return index % 2 != 0; }

  void planColumnsAndKeys(PlannedTable& table, bool link) {
    table.columnCount = link ? 2 + (random_.below(3) == 0) : entityColumnCount();
    table.identifier = take(1 + table.columnCount);
    table.firstColumnName = random_.below(kColumnVocabulary);
    addKey(table, {0, link ? 2U : 1U});
    const std::size_t others = table.columnCount - table.keys[0].columns.count;
    for (std::size_t count = link ? 0 : std::min(others, random_.below(6)); count > 0; --count) {
      addKey(table, {1 + random_.below(others), 1});
    }
    table.mandatoryCount = table.columnCount - random_.below(others + 1);
  }

  // Mostly few, up to eight times the average.
  std::size_t entityColumnCount() {
    const double average = std::max(1.0, 2 * columns_ - kLinkColumns);
    return 1 + static_cast<std::size_t>((average - 1) * 8 * skewed() + 0.5);
  }

  void addKey(PlannedTable& table, ColumnRange columns) {
    table.keys.push_back({take(1 + columns.count), columns});
  }

  void planReferences(PlannedTable& table, bool link) {
    std::size_t column = link ? 0 : 1;
    for (std::size_t count = link ? 2 : random_.below(8); count > 0; --count) {
      PlannedReference reference;
      reference.parent = pickParent();
      reference.columns = {column, tables_[reference.parent].keys[0].columns.count};
      column += reference.columns.count;
      if (column > table.columnCount) {
        break;
      }
      reference.relationship = take(4 + reference.columns.count);
      table.references.push_back(reference);
    }
  }

  // Every twelfth reference at least is to the first table: who has changed the row. Links are seldom
  // referred to.
  std::size_t pickParent() {
    if (random_.below(12) == 0) {
      return 0;
    }
    const auto index = static_cast<std::size_t>(static_cast<double>(tables_.size()) * skewed());
    return isLink(index) && random_.below(20) != 0 ? index - 1 : index;
  }

  // From 0 up to 1, mostly small: an eighth on average.
  double skewed() {
    double product = 1;
    for (int factors = 0; factors < 3; ++factors) {
      product *= random_.unit();
    }
    return product;
  }

  Identifier take(std::size_t count) {
    if (count > kMostIdentifiers - next_) {
      throw std::length_error("more objects than there are identifiers");
    }
    const Identifier first = next_;
    next_ += static_cast<Identifier>(count);
    return first;
  }

  std::vector<PlannedTable> tables_;
  double columns_;
  Identifier next_;
  Random& random_;
};

}  // namespace

std::vector<PlannedTable> planTables(std::size_t tables, double columns, Identifier firstIdentifier,
                                     Random& random) {
  return Planner(tables, columns, firstIdentifier, random).plan();
}
