// SqlScript: what all parts of an SQL script are written with, and what is counted over all of them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/writers/common/dialects.h"
#include "host/writers/common/names.h"
#include "host/writers/common/output_format.h"
#include "host/writers/common/relational_model.h"
#include "host/writers/common/sql_types.h"
#include "host/writers/common/texts.h"
#include "host/writers/sql/cascade_graph.h"

class VornLog;

struct SqlScript {
  const VornStoreModel& model;
  const VornOutputFormat& format;
  const SqlDialect& dialect;
  Utf8Texts texts;
  RelationalModel elements;
  ModelNames names;
  SqlTypes types;
  TextOutput out;
  CascadeGraph cascades;

  std::unordered_map<const VornCandidateKey*, const VornCandidateKey*> writtenKeys;  // see getWrittenKey
  // What planColumnTypes finds out.
  std::unordered_map<const VornAttribute*, std::string> changedTypes;
  std::unordered_map<const VornClass*, std::vector<const VornAttribute*>> shortened;
  std::unordered_set<const VornClass*> tooWide;            // tables whose rows are too long
  std::unordered_set<const VornModelObject*> surplus;      // keys and indexes of tables that have too many
  std::unordered_set<const VornAttribute*> inPrimaryKeys;  // that are written
  // Why tables, keys and indexes are left out; see planElements.
  std::unordered_map<const VornModelObject*, std::string_view> obstacles;

  // Counted for one warning each.
  int unknownTypes = 0;  // columns
  int lossyTypes = 0;    // columns
  int leftOut = 0;       // tables, keys, foreign keys, indexes
  int viewsLeftOut = 0;
  int lostActions = 0;

  // All of these must outlive the script.
  SqlScript(const VornStoreModel& storeModel, const VornOutputFormat& choices, VornOutputFile& file);

  // The identifier of a named element, with quotes where needed.
  std::string identifier(const VornModelObject& element) const;
  // The same, qualified by its schema if it has one that the dialect supports.
  std::string qualified(const VornNamespaceElement& element) const;
  // "A, B"
  std::string list(std::span<const VornAttribute* const> columns) const;
  // "CONSTRAINT name ", or nothing for a key without a name.
  std::string constraint(const VornKey& key) const;

  // Why the dialect cannot take the table, key or index; empty if it can.
  std::string_view whyNot(const VornModelObject& element) const {
    const auto found = obstacles.find(&element);
    return found == obstacles.end() ? std::string_view() : found->second;
  }

  // What the column is declared as.
  std::string_view type(const VornAttribute& column);
  // Whether the column is NOT NULL.
  bool isRequired(const VornAttribute& column) const {
    return !column.optional || inPrimaryKeys.contains(&column);
  }

  // Writes the heading of a section and an empty line.
  void section(std::string_view title);
  // Comment lines with the text; nothing for an empty one.
  void comment(std::string_view indent, std::string_view utf8);
  // A comment line in place of what cannot be written, which is counted.
  void leaveOut(std::string_view indent, std::string_view what, std::string_view why);

  // The warnings, at the end.
  void tellOf(VornLog& log) const;
};

// Decide why the dialect cannot take an element, while the script is planned; SqlScript::whyNot has the
// result.
std::string_view findObstacle(const SqlScript& script, const VornClass& table);
std::string_view findObstacle(SqlScript& script, const VornCandidateKey& key);
std::string_view findObstacle(SqlScript& script, const VornForeignKey& key);
std::string_view findObstacle(SqlScript& script, const VornIndex& index);

// The key that is written for this one: of several with the same columns, where the dialect takes no more,
// the primary key or else the first.
const VornCandidateKey& getWrittenKey(SqlScript& script, const VornCandidateKey& key);

// Whether the key is written as an index: rows without a value are in its way otherwise.
bool isIndexAlone(const SqlScript& script, const VornCandidateKey& key);

// The plan, which is made before anything is written. First, which columns are not declared as their types
// say: those that would number themselves and cannot, and those that make a row too long.
void planColumnTypes(SqlScript& script);
// Then, which tables, keys and indexes are left out, and why.
void planElements(SqlScript& script);

// The parts of the script, each of which the next may refer to.
void writeDrops(SqlScript& script);
void writeSchemas(SqlScript& script);
void writeTables(SqlScript& script);
void writeForeignKeys(SqlScript& script);
void writeViews(SqlScript& script);

// A foreign key as its constraint's clause, which may take several lines with `indent` before all but the
// first.
struct ForeignKeyClause {
  std::string text;
  std::vector<std::string> remarks;  // on actions that are left out: "ON DELETE CASCADE: why"
};
ForeignKeyClause makeForeignKeyClause(SqlScript& script, const VornForeignKey& key, std::string_view indent);

// The statement or, in a definition, the clause that keeps a comment in the database; nothing where there is
// no such, or no comment. `kind` is "TABLE" or "VIEW".
void writeElementComment(SqlScript& script, const VornNamespaceElement& element, std::string_view kind);
void writeColumnComment(SqlScript& script, const VornClass& table, const VornAttribute& column);
std::string makeCommentClause(SqlScript& script, const VornModelObject& element);
