// Schemas, tables with their keys, indexes and synonyms.
#include <algorithm>
#include <set>
#include <unordered_set>

#include "host/writers/sql/sql_script.h"

namespace {

std::string fill(std::string_view pattern, const std::string& name) {
  std::string text(pattern);
  text.replace(text.find("{}"), 2, name);
  return text;
}

bool isInForeignKey(const VornAttribute& column) {
  return std::ranges::any_of(column.keyCollection, [](const VornKey* key) {
    return key->getElementType() == VornElementType::foreignKey;
  });
}

// Writes one table and what belongs to it.
class TableWriter {
 public:
  TableWriter(SqlScript& script, const VornClass& table)
      : script_(script), table_(table), columns_(getColumns(table)) {
    const VornCandidateKey* key = table.primaryCandidateKey.get();
    if (key != nullptr && findObstacle(script, *key).empty()) {
      const std::vector<const VornAttribute*> columns = getKeyColumns(*key);
      primaryColumns_.insert(columns.begin(), columns.end());
      firstOfPrimary_ = columns.front();
    }
  }

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
        writeCandidateKey(static_cast<const VornCandidateKey&>(*key));
      } else if (!script_.dialect.addsConstraintsLater) {
        writeForeignKey(static_cast<const VornForeignKey&>(*key));
      }
    }
    script_.out.add(isEmpty_ ? ")" : "\n)", makeCommentClause(script_, table_), ";\n");
    writeRemarks();
    writeElementComment(script_, table_, "TABLE");
    for (const VornAttribute* column : columns_) {
      writeColumnComment(script_, table_, *column);
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
    const bool isRequired = !column.optional || primaryColumns_.contains(&column);
    script_.out.add("  ", script_.identifier(column), ' ', makeType(column, isRequired),
                    isRequired ? " NOT NULL" : "", makeCommentClause(script_, column));
  }

  // A table has one column that numbers itself: not one that repeats a number of another table, nor, where
  // that is not allowed, one that no key begins with.
  std::string_view makeType(const VornAttribute& column, bool isRequired) {
    const std::string_view hostType = SqlTypes::getHostType(column.type.get());
    if (hostType.empty()) {
      ++script_.unknownTypes;
    }
    if (hostType == "SERIAL") {
      const bool leadsKey = firstOfPrimary_ == &column;
      if (hasSerial_ || !isRequired || isInForeignKey(column) ||
          (script_.dialect.id == DialectId::mysql && !leadsKey)) {
        integer_ = makeSqlType("INTEGER", 0, 0, script_.dialect);
        return integer_;
      }
      hasSerial_ = true;
    }
    return script_.types.get(column.type.get());
  }

  void writeCandidateKey(const VornCandidateKey& key) {
    const std::vector<const VornAttribute*> columns = getKeyColumns(key);
    if (const std::string_view why = findKeyObstacle(key, columns); !why.empty()) {
      remarks_.emplace_back("key " + script_.identifier(key), why);
      return;
    }
    beginLine();
    script_.out.add("  ", script_.constraint(key),
                    table_.primaryCandidateKey == &key ? "PRIMARY KEY (" : "UNIQUE (", script_.list(columns),
                    ")");
  }

  std::string_view findKeyObstacle(const VornCandidateKey& key,
                                   const std::vector<const VornAttribute*>& columns) {
    const std::string_view why = findObstacle(script_, key);
    return why.empty() && !isFirst(columns) && !script_.dialect.takesTwinKeys
               ? "another key has the same columns"
               : why;
  }

  // Whether no key or index before it has these columns.
  bool isFirst(const std::vector<const VornAttribute*>& columns) {
    return columnLists_.insert(columns).second;
  }

  void writeForeignKey(const VornForeignKey& key) {
    if (const std::string_view why = findObstacle(script_, key); !why.empty()) {
      remarks_.emplace_back("foreign key " + script_.identifier(key), why);
      return;
    }
    beginLine();
    script_.out.add("  ", script_.constraint(key), makeForeignKeyClause(script_, key));
  }

  // Where a key may not have columns that may be empty, an index can keep its values apart; it needs a name.
  bool standsForKey(const VornIndex& index) {
    return !script_.dialect.takesNullsInKeys && !script_.names.get(*index.key).empty() &&
           !findObstacle(script_, static_cast<const VornCandidateKey&>(*index.key)).empty() &&
           findObstacle(script_, index).empty();
  }

  void writeIndex(const VornIndex& index) {
    const bool isOfKey = isOfCandidateKey(index);  // and so has no name of its own
    if (isOfKey && !standsForKey(index)) {
      return;
    }
    const std::string name = isOfKey ? script_.identifier(*index.key) : script_.identifier(index);
    if (const std::string_view why = findObstacle(script_, index); !why.empty()) {
      script_.leaveOut("", "index " + name, why);
      return;
    }
    if (!isFirst(getIndexColumns(index)) && !script_.dialect.takesTwinIndexes) {
      script_.comment("", "The index " + name + " is there with a key or index of its columns.");
      return;
    }
    const VornDataPackage* schema = script_.dialect.qualifiesIndexes ? getSchema(table_) : nullptr;
    script_.out.add(index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ",
                    schema == nullptr ? "" : script_.identifier(*schema) + '.', name, " ON ",
                    script_.qualified(table_), " (", listMembers(index), ");\n");
  }

  std::string listMembers(const VornIndex& index) const {
    std::string list;
    for (const VornIndexMember* member : getMembers(index)) {
      list += (list.empty() ? "" : ", ") + script_.identifier(*member->attribute);
      list += member->sortOrder == VornSortOrderType::descending ? " DESC" : "";
    }
    return list;
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
  }

  SqlScript& script_;
  const VornClass& table_;
  std::vector<const VornAttribute*> columns_;
  std::unordered_set<const VornAttribute*> primaryColumns_;
  const VornAttribute* firstOfPrimary_ = nullptr;
  std::set<std::vector<const VornAttribute*>> columnLists_;
  std::vector<std::pair<std::string, std::string_view>> remarks_;  // on what could not be written
  std::string integer_;
  bool isEmpty_ = true;
  bool hasSerial_ = false;
};

}  // namespace

void writeSchemas(SqlScript& script) {
  if (!script.dialect.names.hasSchemas) {
    return;
  }
  for (const VornDataPackage* schema : script.elements.schemas) {
    const std::string name = script.identifier(*schema);
    script.out.add('\n');
    script.comment("", script.texts(schema->description));
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
  for (const VornClass* table : script.elements.tables) {
    if (const std::string_view why = findObstacle(script, *table); !why.empty()) {
      script.out.add('\n');
      script.leaveOut("", "table " + script.qualified(*table), why);
    } else {
      TableWriter(script, *table).write();
    }
  }
}
