// Finds the tables that an SQL query reads, in any dialect.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A table that a query names, without quotes.
struct SqlSource {
  std::string name;       // of a qualified name the last part
  std::string qualifier;  // the part before that; empty if there is none, as in "sales..orders"
  bool isQualified;
};

// Returns the tables after FROM and JOIN and in the lists that follow, including those of subqueries, in
// order of appearance. Ignores comments, string literals, and names defined by WITH clauses. Accepts any
// text. Linear in its length.
std::vector<SqlSource> findSources(std::string_view statement);

// The names alone of the same tables.
std::vector<std::string> findSourceNames(std::string_view statement);
