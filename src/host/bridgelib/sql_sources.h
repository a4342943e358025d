// Which tables an SQL query reads: enough of a reader of SQL, of whatever dialect, to find their names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The names behind FROM and JOIN and in the lists that follow, those of subqueries included, in the order
// they appear: of each qualified name the last part, without its quotes. Comments and string literals are not
// looked into, and the names that WITH clauses give to queries are left out. Any text is survived; one that
// is no SQL has whatever names it seems to have. Linear in the text's length.
std::vector<std::string> findSourceNames(std::string_view statement);
