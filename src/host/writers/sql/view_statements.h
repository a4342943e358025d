// Whether a dialect of SQL takes the statement of a view that was written for another.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "host/writers/common/relational_model.h"

struct SqlScript;
class VornSQLViewEntity;

// At most as many tables and views are looked into for the columns that a statement names.
inline constexpr std::size_t kMostViewSources = 64;

// The names of what views read, as the database keeps them: looked up once for all views of a script.
class SourceNames {
 public:
  struct Names {
    std::string name;
    std::string schema;  // empty: none that the dialect knows
    std::unordered_set<std::string> columns;
  };

  // The script must outlive it.
  explicit SourceNames(const SqlScript& script) : script_(script) {}

  const Names& get(const VornClassifier& source);
  // What the database keeps for an identifier that the script writes.
  std::string getStored(const VornModelObject& element) const;

 private:
  const SqlScript& script_;
  std::unordered_map<const VornClassifier*, Names> names_;
};

// Returns why the statement must never be written: it may do more than create a view. Empty for one complete
// query that the database and its usual client read unchanged.
std::string findDanger(const SqlScript& script, std::string_view statement);

// Why the dialect may not take a statement that is no danger; empty where there is no doubt. Beside the names
// of what it reads, as the script writes them, and those that the statement itself gives, it may use the
// words that all dialects share; any words where the dialect is that of the model's own database. Linear in
// the length of the statement.
std::string findObstacle(const SqlScript& script, SourceNames& sources, const VornSQLViewEntity& view,
                         std::string_view statement);
