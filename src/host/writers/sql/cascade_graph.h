// CascadeGraph: which foreign keys can act where a database wants one path at most from a table to another.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

class VornClass;

class CascadeGraph {
 public:
  // Adds an action that goes from the rows of `parent` to those of `child`. False, and nothing is added,
  // where a table would be reached from one by two paths, or from itself, or there are too many paths to say.
  bool add(const VornClass& parent, const VornClass& child);

 private:
  using Tables = std::unordered_set<const VornClass*>;
  using Edges = std::unordered_map<const VornClass*, std::vector<const VornClass*>>;
  static bool collect(const Edges& edges, std::vector<const VornClass*> from, Tables& reached);

  Edges children_;
  Edges parents_;
};
