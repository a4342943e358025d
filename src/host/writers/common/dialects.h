// The dialects of SQL that the host writes: a table of what makes them differ.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/writers/common/names.h"

class VornStoreModel;

enum class DialectId : std::uint8_t { ansi, postgresql, sqlite, mysql, sqlserver, oracle, db2 };

// What a database does with an unquoted identifier.
enum class CaseFolding : std::uint8_t {
  lower,
  upper,
  ignored  // letter case never counts, with quotes or without
};

// How comments on tables and columns are written.
enum class CommentStyle : std::uint8_t {
  none,             // as a comment of the script
  statement,        // COMMENT ON TABLE t IS '...'
  clause,           // COMMENT '...' after the definition
  extendedProperty  // EXEC sp_addextendedproperty
};

// What a UNIQUE constraint over columns that may be empty has to be written as, so that any number of rows
// can be without a value.
enum class NullsInKeys : std::uint8_t {
  allowed,
  uniqueIndex,    // the constraint wants values; an index
  filteredIndex,  // the constraint takes one row without; an index of the rows that have values
};

// How much room the graph of foreign keys leaves to their actions.
enum class CascadePaths : std::uint8_t {
  any,
  single,  // no table can be reached by two, or from itself
};

// How elements are removed where they are there: statements with {} for the element's identifier, {literal}
// for the same inside a literal, and {table} for the table that it belongs to. Empty: there is no need.
struct DropStatements {
  std::string_view before = {};
  std::string_view view;
  std::string_view foreignKey = {};
  std::string_view synonym = {};
  std::string_view table;
  std::string_view after = {};
};

// Each row lists what differs from the defaults.
struct SqlDialect {
  std::string_view name;                  // what a user calls it: "postgresql"
  std::string_view system;                // "PostgreSQL"
  std::string_view versions;              // of the system, that take the statements
  std::string_view prologue = {};         // what a script begins with; empty: nothing
  std::string_view createSchema = {};     // the statement, with {} for the schema; empty: there is none
  std::string_view standingSchemas = {};  // that every database has, in lower case between blanks
  std::string_view useSchema = {};        // the same, to have unqualified names mean a schema's
  std::string_view createSynonym = {};    // the statement's first words; empty: there are no synonyms
  std::string_view batchEnd = {};  // a line before and after statements that must be sent alone; empty: none
  std::string_view variableMark = {};  // begins what the usual client replaces wherever it is; empty: nothing
  std::string_view begin = {};         // of a transaction that takes the statements in; empty: there is none
  std::string_view commit = {};
  DropStatements drops;
  std::string_view notIndexed;  // types that no key or index takes, as their text begins, between bars
  NameRules names;
  std::size_t commentLimit = SIZE_MAX;  // bytes of a comment
  std::size_t tableColumns;             // at most in a table
  std::size_t keyColumns;               // at most in a key or index
  std::size_t tableIndexes = SIZE_MAX;  // at most for a table, with those of its keys and foreign keys
  std::size_t keyBytes = SIZE_MAX;      // of the values of a key or index, see type_facts.h
  std::size_t rowBytes = SIZE_MAX;      // of a row
  std::size_t inlineBytes = SIZE_MAX;   // of a row without what it keeps elsewhere
  DialectId id;
  char openQuote = '"';
  char closeQuote = '"';
  CaseFolding folding;
  CommentStyle comments;
  std::uint8_t onDelete;  // the referential actions it knows, a bit 1 << action each
  std::uint8_t onUpdate;
  bool takesEmptyTables = false;
  bool addsConstraintsLater = true;   // by ALTER TABLE ... ADD CONSTRAINT; otherwise in CREATE TABLE
  bool escapesBackslash = false;      // in string literals
  bool takesLines = false;            // in string literals: no usual client ends a statement there
  bool qualifiesIndexes = false;      // an index is created in a schema that is named, not in its table's
  bool takesTwinKeys = true;          // two keys of the same columns in the same order
  bool takesMirrorKeys = true;        // two keys of the same columns in another order
  bool takesTwinIndexes = true;       // an index of the same columns as another or a key
  bool takesRepeatedColumns = false;  // an index with a column twice
  bool takesTwinForeignKeys = true;   // two foreign keys of the same columns to the same key
  bool resolvesParents = true;        // a parent without a schema is found from a child with one
  NullsInKeys nullsInKeys = NullsInKeys::allowed;
  CascadePaths cascadePaths = CascadePaths::any;
};

// All dialects, in the order in which lists show them.
std::span<const SqlDialect> getSqlDialects();

// The dialect of that name, or null.
const SqlDialect* findSqlDialect(std::string_view name);

// The dialect of the data store that a model describes; null where there is none.
const SqlDialect* findSqlDialectOf(const VornStoreModel& model);

// The dialect of that name, or where there is none that of the model, or else ANSI SQL.
const SqlDialect& getSqlDialect(const VornStoreModel& model, std::string_view name);

// `identifier` as written in a statement: quoted if the dialect requires it, or always.
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
