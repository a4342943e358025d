// The dialects of SQL that the host writes: a table of what makes them differ.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/writers/common/names.h"

class VornStoreModel;

enum class DialectId : std::uint8_t { ansi, postgresql, sqlite, mysql, sqlserver, oracle, db2 };

// What becomes of an identifier that stands without quotes.
enum class CaseFolding : std::uint8_t {
  lower,
  upper,
  ignored  // letter case never counts, with quotes or without
};

// How comments on tables and columns are written.
enum class CommentStyle : std::uint8_t {
  none,             // as a comment of the script
  statement,        // COMMENT ON TABLE t IS '...'
  clause,           // COMMENT '...' behind the definition
  extendedProperty  // EXEC sp_addextendedproperty
};

// A row tells what differs from the usual.
struct SqlDialect {
  std::string_view name;                // what a user calls it: "postgresql"
  std::string_view system;              // "PostgreSQL"
  std::string_view versions;            // of the system, that take the statements
  std::string_view prologue = {};       // what a script begins with; empty: nothing
  std::string_view createSchema = {};   // the statement, with {} for the schema; empty: there is none
  std::string_view useSchema = {};      // the same, to have unqualified names mean a schema's
  std::string_view createSynonym = {};  // the statement's first words; empty: there are no synonyms
  std::string_view batchEnd = {};       // a line around statements that must stand alone; empty: none
  std::string_view variableMark = {};  // begins what the usual client replaces wherever it is; empty: nothing
  std::string_view notIndexed;         // types that no key or index takes, as their text begins, between bars
  NameRules names;
  std::size_t commentLimit = SIZE_MAX;  // bytes of a comment
  std::size_t tableColumns;             // at most in a table
  std::size_t keyColumns;               // at most in a key or index
  DialectId id;
  char openQuote = '"';
  char closeQuote = '"';
  CaseFolding folding;
  CommentStyle comments;
  std::uint8_t onDelete;  // the referential actions it knows, a bit 1 << action each
  std::uint8_t onUpdate;
  bool takesEmptyTables = false;
  bool addsConstraintsLater = true;  // ALTER TABLE ... ADD CONSTRAINT; else all stand in CREATE TABLE
  bool escapesBackslash = false;     // in string literals
  bool takesLines = false;           // in string literals: no usual client ends a statement there
  bool qualifiesIndexes = false;     // an index is created in a schema that is named, not in its table's
  bool takesTwinKeys = true;         // two keys of the same columns
  bool takesTwinIndexes = true;      // an index of the same columns as another or a key
  bool takesNullsInKeys = true;      // a UNIQUE constraint over columns that may be empty
};

// All dialects, in the order in which they are told to a user.
std::span<const SqlDialect> getSqlDialects();

// The dialect of that name, or null.
const SqlDialect* findSqlDialect(std::string_view name);

// The dialect of the data store that a model describes; null where there is none.
const SqlDialect* findSqlDialectOf(const VornStoreModel& model);

// The dialect of that name, or where there is none that of the model, or else ANSI SQL.
const SqlDialect& getSqlDialect(const VornStoreModel& model, std::string_view name);

// `identifier` as it stands in a statement: with quotes where the dialect needs them, or always.
std::string quoteIdentifier(std::string_view identifier, const SqlDialect& dialect, bool always);

// Whether the dialect needs no quotes for it.
bool standsUnquoted(std::string_view identifier, const SqlDialect& dialect);

// What the database keeps for the identifier `name` of a statement: equal for identifiers that mean the same.
std::string foldIdentifier(std::string_view name, bool isQuoted, const SqlDialect& dialect);

// The text with a blank in each mark of the client's variables: no statement can switch them off.
std::string separateMarks(std::string_view text, const SqlDialect& dialect);

// UTF-8 text as a string literal of the dialect, quotes included; on one line where more could end the
// statement.
std::string quoteLiteral(std::string_view text, const SqlDialect& dialect);
