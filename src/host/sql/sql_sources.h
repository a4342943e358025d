// Which tables an SQL query reads: enough of a reader of SQL, of whatever dialect, to find their names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A table that a query names, without quotes.
struct SqlSource {
  std::string name;       // of a qualified name the last part
  std::string qualifier;  // the part in front of that; empty where there is none, as in "sales..orders"
  bool isQualified;
};

// The tables behind FROM and JOIN and in the lists that follow, those of subqueries included, in the order
// they appear. Comments and string literals are not looked into, and the names that WITH clauses give to
// queries are left out. Any text is survived; one that is no SQL has whatever names it seems to have. Linear
// in the text's length.
std::vector<SqlSource> findSources(std::string_view statement);

// The names alone of the same tables.
std::vector<std::string> findSourceNames(std::string_view statement);
