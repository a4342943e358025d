#include "host/writers/sql/cascade_graph.h"

#include <algorithm>

namespace {

// At most as many tables are looked into for one action, so that large models take no more time for each.
constexpr std::size_t kMostTables = 1000;

}  // namespace

// Adds what can be reached, `from` included. False where that is too much.
bool CascadeGraph::collect(const Edges& edges, std::vector<const VornClass*> from, Tables& reached) {
  reached.insert(from.begin(), from.end());
  while (!from.empty() && reached.size() <= kMostTables) {
    const auto next = edges.find(from.back());
    from.pop_back();
    if (next == edges.end()) {
      continue;
    }
    for (const VornClass* table : next->second) {
      if (reached.insert(table).second) {
        from.push_back(table);
      }
    }
  }
  return reached.size() <= kMostTables;
}

bool CascadeGraph::add(const VornClass& parent, const VornClass& child) {
  Tables below;
  Tables above;
  Tables aboveThose;
  if (!collect(children_, {&child}, below) || below.contains(&parent) ||
      !collect(parents_, {&parent}, above) || !collect(parents_, {below.begin(), below.end()}, aboveThose) ||
      std::ranges::any_of(above, [&](const VornClass* table) { return aboveThose.contains(table); })) {
    return false;
  }
  children_[&parent].push_back(&child);
  parents_[&child].push_back(&parent);
  return true;
}
