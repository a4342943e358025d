#include "host/services/child_tables.h"

#include <algorithm>
#include <numeric>

namespace {

// Up to here the columns of a table are compared one by one: that costs less than an index of their names.
constexpr std::size_t kFewColumns = 24;

VornString withNumber(const VornString& name, std::uint32_t number) {
  return name + "_" + VornString(std::to_string(number));
}

bool isPhysicalNameTaken(const VornClass& table, const VornString& name) {
  return std::ranges::any_of(table.featureCollection, [&](const VornFeature* column) {
    return column->physicalName.equals(name, false);
  });
}

}  // namespace

VornCandidateKeySets::VornCandidateKeySets(const VornClass& table) {
  std::vector<std::uint32_t> keyCounts;  // by column, in the order in which they are first seen
  for (const VornKey* key : table.keyCollection) {
    if (key->getElementType() != VornElementType::candidateKey || key->attributeCollection.count() == 0) {
      continue;
    }
    Ranks& columns = keys_.emplace_back();
    for (const VornAttribute* column : key->attributeCollection) {
      const auto number = ranks_.try_emplace(column, static_cast<std::uint32_t>(ranks_.size())).first->second;
      keyCounts.resize(ranks_.size());
      ++keyCounts[number];
      columns.push_back(number);
    }
  }
  Ranks byCount(keyCounts.size());
  std::iota(byCount.begin(), byCount.end(), 0U);
  std::ranges::stable_sort(byCount, {}, [&](std::uint32_t number) { return keyCounts[number]; });
  Ranks rankOf(byCount.size());
  for (std::uint32_t rank = 0; rank < byCount.size(); ++rank) {
    rankOf[byCount[rank]] = rank;
  }
  for (auto& [column, number] : ranks_) {
    number = rankOf[number];
  }
  for (Ranks& columns : keys_) {
    std::ranges::transform(columns, columns.begin(), [&](std::uint32_t number) { return rankOf[number]; });
    std::ranges::sort(columns);
  }
  std::ranges::sort(keys_);
}

bool VornCandidateKeySets::hasKeyWithin(std::span<const VornAttribute* const> columns) const {
  Ranks wanted;
  for (const VornAttribute* column : columns) {
    if (const auto found = ranks_.find(column); found != ranks_.end()) {
      wanted.push_back(found->second);
    }
  }
  std::ranges::sort(wanted);
  // Keys that have their first `depth` columns in common, all of them wanted.
  struct Group {
    std::vector<Ranks>::const_iterator first;
    std::vector<Ranks>::const_iterator last;
    std::size_t depth;
    Ranks::const_iterator rest;  // of the wanted columns
  };
  std::vector<Group> groups{{keys_.begin(), keys_.end(), 0, wanted.begin()}};
  while (!groups.empty()) {
    Group group = groups.back();
    groups.pop_back();
    const auto next = [&](const Ranks& key) { return key[group.depth]; };
    while (group.first != group.last) {
      if (group.first->size() == group.depth) {
        return true;  // the shortest key of a group is its first
      }
      group.rest = std::lower_bound(group.rest, wanted.cend(), next(*group.first));
      if (group.rest == wanted.end()) {
        break;
      }
      const auto begin = std::ranges::lower_bound(group.first, group.last, *group.rest, {}, next);
      const auto end = std::ranges::upper_bound(begin, group.last, *group.rest, {}, next);
      if (begin != end) {
        groups.push_back({begin, end, group.depth + 1, group.rest + 1});
      }
      group.first = end;
    }
  }
  return false;
}

bool VornChildTables::hasKeyWithin(const VornClass& table, std::span<const VornAttribute* const> columns) {
  return keySets_.try_emplace(&table, table).first->second.hasKeyWithin(columns);
}

VornString VornChildTables::takePhysicalName(const VornClass& table, const VornString& wanted) {
  if (wanted.empty()) {
    return wanted;
  }
  VornString name = wanted;
  if (table.getAttributeCount() <= kFewColumns) {
    for (std::uint32_t number = 2; isPhysicalNameTaken(table, name); ++number) {
      name = withNumber(wanted, number);
    }
    return name;
  }
  const auto [place, isNew] = physicalNames_.try_emplace(&table);
  auto& [taken, next] = place->second;
  if (isNew) {
    for (const VornFeature* column : table.featureCollection) {
      taken.insert(toUpperAscii(column->physicalName.view()));
    }
  }
  if (!taken.insert(toUpperAscii(name.view())).second) {
    std::uint32_t& number = next.try_emplace(toUpperAscii(wanted.view()), 2).first->second;
    do {
      name = withNumber(wanted, number++);
    } while (!taken.insert(toUpperAscii(name.view())).second);
  }
  return name;
}
