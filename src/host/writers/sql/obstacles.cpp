// What keeps an element of a model out of a database.
#include <algorithm>
#include <map>

#include "host/metamodel/casting.h"
#include "host/writers/sql/sql_script.h"
#include "host/writers/sql/type_facts.h"

namespace {

bool hasRepeated(std::span<const VornAttribute* const> columns) {
  std::vector<const VornAttribute*> sorted(columns.begin(), columns.end());
  std::ranges::sort(sorted);
  return std::ranges::adjacent_find(sorted) != sorted.end();
}

std::string_view findColumnObstacle(SqlScript& script, const VornModelObject& element,
                                    std::span<const VornAttribute* const> columns) {
  if (script.surplus.contains(&element)) {
    return "its table has as many keys and indexes as a table can have";
  }
  if (columns.size() > script.dialect.keyColumns) {
    return "it has more columns than a key can have";
  }
  if (!script.dialect.takesRepeatedColumns && hasRepeated(columns)) {
    return "it has a column twice";
  }
  std::size_t bytes = 0;
  for (const VornAttribute* column : columns) {
    const std::string_view type = script.type(*column);
    if (!isComparable(type, script.dialect)) {
      return "it has a column of a type that cannot be compared";
    }
    bytes += getKeyBytes(type, script.dialect);
  }
  return bytes > script.dialect.keyBytes ? "its values can be longer than a key can be" : "";
}

}  // namespace

std::string_view findObstacle(const SqlScript& script, const VornClass& table) {
  const std::size_t columns = table.featureCollection.count();
  if (columns == 0 && !script.dialect.takesEmptyTables) {
    return "it has no columns";
  }
  if (columns > script.dialect.tableColumns) {
    return "it has more columns than a table can have";
  }
  return script.tooWide.contains(&table) ? "its rows can be longer than a table's can be" : "";
}

std::string_view findObstacle(SqlScript& script, const VornCandidateKey& key) {
  const auto& table = cast<VornClass>(*key.getOwner());
  const std::vector<const VornAttribute*> columns = getKeyColumns(key);
  if (!findObstacle(script, table).empty()) {
    return "its table is left out";
  }
  if (columns.empty() || !areColumnsOf(table, columns)) {
    return "it has columns of another table, or none";
  }
  return findColumnObstacle(script, key, columns);
}

std::string_view findObstacle(SqlScript& script, const VornForeignKey& key) {
  const VornCandidateKey* referenced = key.candidateKey.get();
  if (referenced == nullptr || referenced->getOwner() == nullptr) {
    return "the key that it refers to is not known";
  }
  if (key.attributeCollection.count() != referenced->attributeCollection.count()) {
    return "it has not as many columns as the key that it refers to";
  }
  if (!findObstacle(script, *referenced).empty()) {
    return "the key that it refers to is left out";
  }
  if (isIndexAlone(script, *referenced)) {
    return "the key that it refers to has a column that may be empty, and so is an index alone";
  }
  const auto& table = cast<VornClass>(*key.getOwner());
  const auto& parent = cast<VornClass>(*referenced->getOwner());
  if (!script.dialect.resolvesParents && getSchema(table) != nullptr && getSchema(parent) == nullptr) {
    return "the table that it refers to has no schema, and is looked for in its own";
  }
  std::vector<const VornAttribute*> columns;
  for (const ColumnPair& pair : getColumnPairs(key)) {
    if (pair.own->getOwner() != key.getOwner()) {
      return "it has columns of another table";
    }
    if (!canReferTo(script.type(*pair.own), script.type(*pair.referenced), script.dialect)) {
      return "its columns are of other types than those that they refer to";
    }
    columns.push_back(pair.own);
  }
  return findColumnObstacle(script, key, columns);
}

const VornCandidateKey& getWrittenKey(SqlScript& script, const VornCandidateKey& key) {
  if (script.dialect.takesTwinKeys) {
    return key;
  }
  const auto& table = cast<VornClass>(*key.getOwner());
  if (!script.writtenKeys.contains(&key)) {
    std::map<std::vector<const VornAttribute*>, const VornCandidateKey*> written;
    const auto add = [&](const VornKey* other) {
      if (other != nullptr && other->getElementType() == VornElementType::candidateKey) {
        std::vector<const VornAttribute*> columns = getKeyColumns(*other);
        if (!script.dialect.takesMirrorKeys) {
          std::ranges::sort(columns);
        }
        const auto* candidate = cast<VornCandidateKey>(other);
        script.writtenKeys[candidate] = written.emplace(std::move(columns), candidate).first->second;
      }
    };
    add(table.primaryCandidateKey.get());
    std::ranges::for_each(table.keyCollection, add);
  }
  return *script.writtenKeys.at(&key);
}

bool isIndexAlone(const SqlScript& script, const VornCandidateKey& key) {
  const auto& table = cast<VornClass>(*key.getOwner());
  return script.dialect.nullsInKeys != NullsInKeys::allowed && table.primaryCandidateKey != &key &&
         std::ranges::any_of(key.attributeCollection,
                             [&](const VornAttribute* column) { return !script.isRequired(*column); });
}

std::string_view findObstacle(SqlScript& script, const VornIndex& index) {
  const std::vector<const VornAttribute*> columns = getIndexColumns(index);
  if (columns.empty() || !areColumnsOf(cast<VornClass>(*index.getOwner()), columns)) {
    return "it has columns of another table, or none";
  }
  return findColumnObstacle(script, index, columns);
}

void planElements(SqlScript& script) {
  const auto plan = [&script](const auto& element) {
    if (const std::string_view why = findObstacle(script, element); !why.empty()) {
      script.obstacles.emplace(&element, why);
    }
  };
  for (const VornClass* table : script.elements.tables) {
    plan(*table);
    for (const VornKey* key : table->keyCollection) {
      if (const auto* candidate = dyn_cast<VornCandidateKey>(key)) {
        plan(*candidate);
      } else {
        plan(cast<VornForeignKey>(*key));
      }
    }
    for (const VornIndex* index : table->indexCollection) {
      plan(*index);
    }
  }
}
