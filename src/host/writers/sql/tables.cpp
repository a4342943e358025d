// Schemas, tables with their keys, indexes and synonyms.
#include <map>
#include <set>

#include "host/metamodel/casting.h"
#include "host/writers/sql/sql_script.h"

namespace {

std::string fill(std::string_view pattern, const std::string& name) {
  std::string text(pattern);
  text.replace(text.find("{}"), 2, name);
  return text;
}

// Writes one table and what belongs to it.
class TableWriter {
 public:
  TableWriter(SqlScript& script, const VornClass& table)
      : script_(script), table_(table), columns_(getColumns(table)) {}

  void write() {
    script_.out.add('\n');
    if (script_.dialect.comments == CommentStyle::none) {
      script_.comment("", script_.texts(table_.description));
    }
    script_.out.add("CREATE TABLE ", script_.qualified(table_), " (");
    for (const VornAttribute* column : columns_) {
      writeColumn(*column);
    }
    for (const VornKey* key : table_.keyCollection) {
      if (key->getElementType() == VornElementType::candidateKey) {
        writeCandidateKey(cast<VornCandidateKey>(*key));
      } else if (!script_.dialect.addsConstraintsLater) {
        writeForeignKey(cast<VornForeignKey>(*key));
      }
    }
    script_.out.add(isEmpty_ ? ")" : "\n)", makeCommentClause(script_, table_), ";\n");
    writeRemarks();
    writeElementComment(script_, table_, "TABLE");
    for (const VornAttribute* column : columns_) {
      writeColumnComment(script_, table_, *column);
    }
    for (const VornCandidateKey* key : indexesOfKeys_) {
      writeIndexOf(*key);
    }
    for (const VornIndex* index : table_.indexCollection) {
      writeIndex(*index);
    }
    for (const VornSynonym* synonym : table_.synonymCollection) {
      writeSynonym(*synonym);
    }
  }

 private:
  // Begins the next line between the table's parentheses; the comment lines in front of it are its own.
  void beginLine() {
    script_.out.add(isEmpty_ ? "\n" : ",\n");
    isEmpty_ = false;
  }

  void writeColumn(const VornAttribute& column) {
    beginLine();
    if (script_.dialect.comments == CommentStyle::none) {
      script_.comment("  ", script_.texts(column.description));
    }
    if (SqlTypes::getHostType(column.type.get()).empty()) {
      ++script_.unknownTypes;
    }
    if (const std::string_view loss = script_.types.getLoss(column.type.get()); !loss.empty()) {
      ++script_.lossyTypes;
      lossyColumns_[loss].push_back(&column);
    }
    script_.out.add("  ", script_.identifier(column), ' ', script_.type(column),
                    script_.isRequired(column) ? " NOT NULL" : "", makeCommentClause(script_, column));
  }

  void writeCandidateKey(const VornCandidateKey& key) {
    const std::vector<const VornAttribute*> columns = getKeyColumns(key);
    if (const std::string_view why = findKeyObstacle(key, columns); !why.empty()) {
      remarks_.emplace_back("key " + script_.identifier(key), why);
      return;
    }
    if (isIndexAlone(script_, key)) {
      indexesOfKeys_.push_back(&key);
      return;
    }
    beginLine();
    script_.out.add("  ", script_.constraint(key),
                    table_.primaryCandidateKey == &key ? "PRIMARY KEY (" : "UNIQUE (", script_.list(columns),
                    ")");
  }

  std::string_view findKeyObstacle(const VornCandidateKey& key,
                                   const std::vector<const VornAttribute*>& columns) {
    if (const std::string_view why = script_.whyNot(key); !why.empty()) {
      return why;
    }
    isFirst(columns);
    if (&getWrittenKey(script_, key) != &key) {
      return "another key has the same columns";
    }
    return isIndexAlone(script_, key) && script_.names.get(key).empty()
               ? "it has a column that may be empty, and no name for an index"
               : "";
  }

  // Whether no key or index before it has these columns.
  bool isFirst(const std::vector<const VornAttribute*>& columns) {
    return columnLists_.insert(columns).second;
  }

  void writeForeignKey(const VornForeignKey& key) {
    if (const std::string_view why = script_.whyNot(key); !why.empty()) {
      remarks_.emplace_back("foreign key " + script_.identifier(key), why);
      return;
    }
    beginLine();
    const ForeignKeyClause clause = makeForeignKeyClause(script_, key, "    ");
    script_.out.add("  ", script_.constraint(key), clause.text);
    for (const std::string& remark : clause.remarks) {
      actionRemarks_.push_back("foreign key " + script_.identifier(key) + ": " + remark);
    }
  }

  // A key that rows without a value keep from being a constraint.
  void writeIndexOf(const VornCandidateKey& key) {
    const std::string name = script_.identifier(key);
    script_.comment("", "The key " + name + " is an index, for its columns may be empty.");
    writeIndex(name, true, getKeyColumns(key), script_.list(getKeyColumns(key)));
  }

  void writeIndex(const VornIndex& index) {
    if (isOfCandidateKey(index)) {
      return;  // the key stands for it
    }
    const std::string name = script_.identifier(index);
    if (const std::string_view why = script_.whyNot(index); !why.empty()) {
      script_.leaveOut("", "index " + name, why);
      return;
    }
    const std::vector<const VornAttribute*> columns = getIndexColumns(index);
    if (!isFirst(columns) && !script_.dialect.takesTwinIndexes) {
      script_.comment("", "The index " + name + " is there with a key or index of its columns.");
      return;
    }
    writeIndex(name, index.unique, columns, listMembers(index));
  }

  void writeIndex(const std::string& name, bool isUnique, const std::vector<const VornAttribute*>& columns,
                  const std::string& members) {
    const VornDataPackage* schema = script_.dialect.qualifiesIndexes ? getSchema(table_) : nullptr;
    script_.out.add(isUnique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ",
                    schema == nullptr ? "" : script_.identifier(*schema) + '.', name, " ON ",
                    script_.qualified(table_), " (", members, ")", isUnique ? makeFilter(columns) : "",
                    ";\n");
  }

  // Has a unique index take any number of rows without a value.
  std::string makeFilter(const std::vector<const VornAttribute*>& columns) const {
    std::string filter;
    for (const VornAttribute* column : columns) {
      if (!script_.isRequired(*column)) {
        filter += (filter.empty() ? " WHERE " : " AND ") + script_.identifier(*column) + " IS NOT NULL";
      }
    }
    switch (script_.dialect.nullsInKeys) {
      case NullsInKeys::filteredIndex:
        return filter;
      case NullsInKeys::uniqueIndex:
        return filter.empty() ? "" : " EXCLUDE NULL KEYS";
      default:
        return "";
    }
  }

  std::string listMembers(const VornIndex& index) const {
    return join(getMembers(index), ", ", [this](const VornIndexMember* member) {
      return script_.identifier(*member->attribute) +
             (member->sortOrder == VornSortOrderType::descending ? " DESC" : "");
    });
  }

  void writeSynonym(const VornSynonym& synonym) {
    const VornDataPackage* schema = script_.dialect.names.hasSchemas ? getSchema(table_) : nullptr;
    const std::string name =
        (schema == nullptr ? "" : script_.identifier(*schema) + '.') + script_.identifier(synonym);
    if (script_.dialect.createSynonym.empty()) {
      script_.comment("", name + " is a synonym of " + script_.qualified(table_) + ".");
    } else {
      script_.out.add(script_.dialect.createSynonym, name, " FOR ", script_.qualified(table_), ";\n");
    }
  }

  void writeRemarks() {
    for (const auto& [what, why] : remarks_) {
      script_.leaveOut("", what, why);
    }
    for (const std::string& remark : actionRemarks_) {
      script_.out.add("-- Left out: ", remark, ".\n");
    }
    for (const auto& [loss, columns] : lossyColumns_) {
      script_.comment("",
                      "Not held by the types of " + script_.list(columns) + ": " + std::string(loss) + ".");
    }
    if (const auto shortened = script_.shortened.find(&table_); shortened != script_.shortened.end()) {
      script_.comment("", "Declared as shorter types, for a row can have " +
                              std::to_string(script_.dialect.rowBytes) +
                              " bytes: " + script_.list(shortened->second) + ".");
    }
  }

  SqlScript& script_;
  const VornClass& table_;
  std::vector<const VornAttribute*> columns_;
  std::set<std::vector<const VornAttribute*>> columnLists_;
  std::vector<std::pair<std::string, std::string_view>> remarks_;  // on what could not be written
  std::vector<std::string> actionRemarks_;
  std::map<std::string_view, std::vector<const VornAttribute*>> lossyColumns_;
  std::vector<const VornCandidateKey*> indexesOfKeys_;
  bool isEmpty_ = true;
};

}  // namespace

void writeSchemas(SqlScript& script) {
  if (!script.dialect.names.hasSchemas) {
    return;
  }
  if (!script.elements.schemas.empty()) {
    script.section("Schemas");
  }
  for (const VornDataPackage* schema : script.elements.schemas) {
    const std::string name = script.identifier(*schema);
    script.out.add('\n');
    script.comment("", script.texts(schema->description));
    const std::string standing = " " + foldCase(script.names.get(*schema)) + " ";
    if (script.dialect.standingSchemas.find(standing) != std::string_view::npos) {
      script.comment("", "The schema " + name + " is there in every database.");
      continue;
    }
    if (script.dialect.createSchema.empty()) {
      script.comment("", "The schema " + name + " comes with the user of that name, who must exist.");
    } else {
      script.out.add(fill(script.dialect.createSchema, name), '\n');
    }
    if (!script.dialect.batchEnd.empty()) {
      script.out.add(script.dialect.batchEnd, '\n');
    }
  }
}

void writeTables(SqlScript& script) {
  if (!script.elements.tables.empty()) {
    script.section("Tables");
  }
  for (const VornClass* table : script.elements.tables) {
    if (const std::string_view why = script.whyNot(*table); !why.empty()) {
      script.out.add('\n');
      script.leaveOut("", "table " + script.qualified(*table), why);
    } else {
      TableWriter(script, *table).write();
    }
  }
}
