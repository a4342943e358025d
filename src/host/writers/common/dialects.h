// The dialects of SQL that the host writes: a table of what makes them differ.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/writers/common/names.h"

class VornStoreModel;

enum class DialectId : std::uint8_t { ansi, postgresql, sqlite, mysql, sqlserver, oracle, db2 };

// How comments on tables and columns are written.
enum class CommentStyle : std::uint8_t {
  none,             // as a comment of the script
  statement,        // COMMENT ON TABLE t IS '...'
  clause,           // COMMENT '...' behind the definition
  extendedProperty  // EXEC sp_addextendedproperty
};

struct SqlDialect {
  DialectId id;
  std::string_view name;     // what a user calls it: "postgresql"
  std::string_view summary;  // the system's own name, and the version that the statements need
  char openQuote;
  char closeQuote;
  NameRules names;
  CommentStyle comments;
  std::size_t commentLimit;        // bytes of a comment
  std::string_view createSchema;   // the statement in front of a schema's name; empty: there is none
  std::string_view useSchema;      // the same of the one that makes a schema the place of unqualified names
  std::string_view createSynonym;  // the statement's first words; empty: there are no synonyms
  std::string_view batchEnd;       // a line that must stand behind some statements; empty: none
  bool takesEmptyTables;
  bool addsConstraintsLater;  // ALTER TABLE ... ADD CONSTRAINT; else all stand in CREATE TABLE
  bool escapesBackslash;      // in string literals
  std::size_t keyColumns;     // at most in a key or index
  std::uint8_t onDelete;      // the referential actions it takes, a bit 1 << action each
  std::uint8_t onUpdate;
  std::string_view notIndexed;  // types that no key or index takes, as their text begins, each between bars
};

// All dialects, in the order in which they are told to a user.
std::span<const SqlDialect> getSqlDialects();

// The dialect of that name, or null.
const SqlDialect* findSqlDialect(std::string_view name);

// The dialect of the data store that a model describes, or else ANSI SQL.
const SqlDialect& getSqlDialectOf(const VornStoreModel& model);

// `identifier` as it stands in a statement: with quotes where the dialect needs them, or always.
std::string quoteIdentifier(std::string_view identifier, const SqlDialect& dialect, bool always);

// The text as a string literal of the dialect, quotes included.
std::string quoteLiteral(std::string_view text, const SqlDialect& dialect);
