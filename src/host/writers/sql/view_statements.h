// Whether a dialect of SQL takes the statement of a view that was written for another.
#pragma once

#include <string_view>

struct SqlScript;
class VornSQLViewEntity;

// At most as many tables and views are looked into for the columns that a statement names.
inline constexpr std::size_t kMostViewSources = 64;

// Why the dialect may not take the statement; empty where there is no doubt. Nothing less than one whole
// query is taken: no end of a statement, a comment or a literal in it. Beside the names of what it reads, as
// the script writes them, and those that the statement itself gives, it may use the words that all dialects
// share; any words where the dialect is that of the model's own database. Linear in the length of the
// statement.
std::string_view findObstacle(const SqlScript& script, const VornSQLViewEntity& view,
                              std::string_view statement);
