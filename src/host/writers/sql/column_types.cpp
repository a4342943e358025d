// Which columns are declared otherwise than their types alone say.
#include <algorithm>
#include <set>
#include <unordered_set>

#include "host/metamodel/casting.h"
#include "host/writers/sql/sql_script.h"
#include "host/writers/sql/type_facts.h"

namespace {

bool isInForeignKey(const VornAttribute& column) {
  return std::ranges::any_of(column.keyCollection, [](const VornKey* key) {
    return key->getElementType() == VornElementType::foreignKey;
  });
}

// A table has one column that numbers itself: not one that repeats a number of another table, nor one that
// may be empty or, where that is not allowed, one that the primary key does not begin with.
void planSerials(SqlScript& script, const VornClass& table,
                 const std::vector<const VornAttribute*>& columns) {
  const VornCandidateKey* key = table.primaryCandidateKey.get();
  const VornAttribute* first = nullptr;
  std::vector<const VornAttribute*> ofKey;
  if (key != nullptr && findObstacle(script, *key).empty()) {
    ofKey = getKeyColumns(*key);
    first = ofKey.front();
  }
  bool hasSerial = false;
  for (const VornAttribute* column : columns) {
    if (SqlTypes::getHostType(column->type.get()) != "SERIAL") {
      continue;
    }
    const bool isRequired = !column->optional || std::ranges::find(ofKey, column) != ofKey.end();
    if (hasSerial || !isRequired || isInForeignKey(*column) ||
        (script.dialect.id == DialectId::mysql && first != column)) {
      script.changedTypes[column] = makeSqlType("INTEGER", 0, 0, script.dialect);
    } else {
      hasSerial = true;
    }
  }
}

// The columns of keys and indexes, whose types must stay as they are, unless no key takes them anyway.
std::unordered_set<const VornAttribute*> getKeyed(SqlScript& script, const VornClass& table) {
  std::unordered_set<const VornAttribute*> keyed;
  const auto add = [&](const VornAttribute* column) {
    if (column != nullptr && getKeyBytes(script.type(*column), script.dialect) <= script.dialect.keyBytes) {
      keyed.insert(column);
    }
  };
  for (const VornKey* key : table.keyCollection) {
    std::ranges::for_each(key->attributeCollection, add);
  }
  for (const VornIndex* index : table.indexCollection) {
    std::ranges::for_each(getIndexColumns(*index), add);
  }
  return keyed;
}

std::string makeShorter(std::string_view type, std::string_view shorter) {
  return shorter == "TEXT" || shorter == "BLOB"
             ? std::string(shorter)
             : std::string(shorter) + std::string(type.substr(type.find('(')));
}

// Declares the longest columns as types that a row keeps elsewhere, until the row is short enough.
void planRow(SqlScript& script, const VornClass& table, const std::vector<const VornAttribute*>& columns) {
  const std::size_t limit = script.dialect.rowBytes;
  std::size_t total = (columns.size() + 7) / 8;  // a bit of each says whether it has a value
  for (const VornAttribute* column : columns) {
    total += getRowBytes(script.type(*column), script.dialect);
  }
  if (total <= limit) {
    return;
  }
  const std::unordered_set<const VornAttribute*> keyed = getKeyed(script, table);
  std::vector<const VornAttribute*> longest;
  std::ranges::copy_if(columns, std::back_inserter(longest), [&](const VornAttribute* column) {
    return !keyed.contains(column) && !getShorterType(script.type(*column), script.dialect).empty();
  });
  std::ranges::stable_sort(longest, std::ranges::greater(), [&](const VornAttribute* column) {
    return getRowBytes(script.type(*column), script.dialect);
  });
  for (auto next = longest.begin(); total > limit && next != longest.end(); ++next) {
    const std::string type(script.type(**next));
    std::string shorter = makeShorter(type, getShorterType(type, script.dialect));
    total -= getRowBytes(type, script.dialect) - getRowBytes(shorter, script.dialect);
    script.changedTypes[*next] = std::move(shorter);
    script.shortened[&table].push_back(*next);
  }
  if (total > limit) {
    script.tooWide.insert(&table);
  }
}

// What a row keeps of a long value in its place counts, too.
bool fitsInline(SqlScript& script, const std::vector<const VornAttribute*>& columns) {
  constexpr std::size_t kPrefix = 41;
  std::size_t total = 0;
  for (const VornAttribute* column : columns) {
    total += std::min(getRowBytes(script.type(*column), script.dialect), kPrefix);
  }
  return total + columns.size() / 8 <= script.dialect.inlineBytes;
}

// Takes the indexes that keys, the primary one first, indexes and foreign keys need, as many as a table can
// have.
void planIndexes(SqlScript& script, const VornClass& table) {
  std::size_t count = 0;
  const auto take = [&](const VornModelObject& element) {
    if (++count > script.dialect.tableIndexes) {
      script.surplus.insert(&element);
    }
  };
  const auto takeKey = [&](const VornCandidateKey& key) {
    if (&getWrittenKey(script, key) == &key && findObstacle(script, key).empty()) {
      take(key);
    }
  };
  const VornCandidateKey* primary = table.primaryCandidateKey.get();
  if (primary != nullptr) {
    takeKey(*primary);
  }
  for (const VornKey* key : table.keyCollection) {
    if (key != primary && key->getElementType() == VornElementType::candidateKey) {
      takeKey(cast<VornCandidateKey>(*key));
    }
  }
  for (const VornIndex* index : table.indexCollection) {
    if (!isOfCandidateKey(*index) && findObstacle(script, *index).empty()) {
      take(*index);
    }
  }
  for (const VornKey* key : table.keyCollection) {
    const VornIndex* own = key->index.get();
    const bool hasIndex =
        own != nullptr && !script.surplus.contains(own) && getIndexColumns(*own) == getKeyColumns(*key);
    if (key->getElementType() == VornElementType::foreignKey && !hasIndex) {
      take(*key);
    }
  }
}

}  // namespace

void planColumnTypes(SqlScript& script) {
  for (const VornClass* table : script.elements.tables) {
    const std::vector<const VornAttribute*> columns = getColumns(*table);
    if (table->keyCollection.count() + table->indexCollection.count() > script.dialect.tableIndexes) {
      planIndexes(script, *table);
    }
    planSerials(script, *table, columns);
    planRow(script, *table, columns);
    if (!fitsInline(script, columns)) {
      script.tooWide.insert(table);
    }
    const VornCandidateKey* key = table->primaryCandidateKey.get();
    if (key != nullptr && findObstacle(script, *key).empty()) {
      for (const VornAttribute* column : key->attributeCollection) {
        script.inPrimaryKeys.insert(column);
      }
    }
  }
}
