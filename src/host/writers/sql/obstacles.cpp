// What keeps an element of a model out of a database.
#include <algorithm>

#include "host/writers/sql/sql_script.h"

namespace {

// Types whose values can be compared, by how PostgreSQL calls them: a column can refer to one of the same
// family and of the same or a higher rank. What is not here is comparable with itself alone.
struct TypeFamily {
  std::string_view type;
  int family;
  int rank;
};
constexpr TypeFamily kTypeFamilies[] = {
    {"SMALLINT", 1, 1}, {"INTEGER", 1, 1}, {"BIGINT", 1, 1}, {"DECIMAL", 1, 2},   {"NUMERIC", 1, 2},
    {"REAL", 1, 3},     {"FLOAT", 1, 3},   {"DOUBLE", 1, 3}, {"CHAR", 2, 1},      {"VARCHAR", 2, 1},
    {"TEXT", 2, 1},     {"DATE", 3, 1},    {"TIME", 4, 1},   {"TIMESTAMP", 3, 1}, {"BIT", 5, 1},
};

// The first word of a type.
std::string_view getStem(std::string_view type) {
  return type.substr(0, type.find_first_of(" ("));
}

bool canReferTo(std::string_view own, std::string_view referenced) {
  const auto* const ownFamily = std::ranges::find(kTypeFamilies, getStem(own), &TypeFamily::type);
  const auto* const otherFamily = std::ranges::find(kTypeFamilies, getStem(referenced), &TypeFamily::type);
  if (ownFamily == std::end(kTypeFamilies) || otherFamily == std::end(kTypeFamilies) || own.ends_with("[]") ||
      referenced.ends_with("[]")) {
    return own == referenced;
  }
  return ownFamily->family == otherFamily->family && ownFamily->rank <= otherFamily->rank;
}

std::string nameInPostgresql(const VornAttribute& column) {
  const auto* type = dynamic_cast<const VornDerivedType*>(column.type.get());
  std::string text = type == nullptr ? std::string()
                                     : makeSqlType(SqlTypes::getHostType(type), type->getLength(),
                                                   type->getScale(), *findSqlDialect("postgresql"));
  return text.empty() ? "VARCHAR" : text;
}

// Whether the type begins as one of those in the list, which has bars around each.
bool isListed(std::string_view type, std::string_view list) {
  while (list.size() > 1) {
    list.remove_prefix(1);
    const std::string_view listed = list.substr(0, list.find('|'));
    if (type.starts_with(listed)) {
      return true;
    }
    list.remove_prefix(listed.size());
  }
  return false;
}

std::string_view findColumnObstacle(SqlScript& script, std::span<const VornAttribute* const> columns) {
  if (columns.size() > script.dialect.keyColumns) {
    return "it has more columns than a key can have";
  }
  if (std::ranges::any_of(columns, [&](const VornAttribute* column) {
        return isListed(script.types.get(column->type.get()), script.dialect.notIndexed);
      })) {
    return "it has a column of a type that cannot be compared";
  }
  return {};
}

}  // namespace

std::string_view findObstacle(const SqlScript& script, const VornClass& table) {
  const std::size_t columns = table.featureCollection.count();
  if (columns == 0 && !script.dialect.takesEmptyTables) {
    return "it has no columns";
  }
  return columns > script.dialect.tableColumns ? "it has more columns than a table can have" : "";
}

std::string_view findObstacle(SqlScript& script, const VornCandidateKey& key) {
  const auto& table = static_cast<const VornClass&>(*key.getOwner());
  const std::vector<const VornAttribute*> columns = getKeyColumns(key);
  if (!findObstacle(script, table).empty()) {
    return "its table is left out";
  }
  if (columns.empty() || !areColumnsOf(table, columns)) {
    return "it has columns of another table, or none";
  }
  if (!script.dialect.takesNullsInKeys && table.primaryCandidateKey != &key &&
      std::ranges::any_of(columns, &VornAttribute::optional)) {
    return "it has a column that may be empty";
  }
  return findColumnObstacle(script, columns);
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
  for (const ColumnPair& pair : getColumnPairs(key)) {
    if (pair.own->getOwner() != key.getOwner()) {
      return "it has columns of another table";
    }
    if (script.dialect.id != DialectId::sqlite &&
        !canReferTo(nameInPostgresql(*pair.own), nameInPostgresql(*pair.referenced))) {
      return "its columns are of other types than those that they refer to";
    }
  }
  return {};
}

std::string_view findObstacle(SqlScript& script, const VornIndex& index) {
  const std::vector<const VornAttribute*> columns = getIndexColumns(index);
  if (columns.empty() || !areColumnsOf(static_cast<const VornClass&>(*index.getOwner()), columns)) {
    return "it has columns of another table, or none";
  }
  return findColumnObstacle(script, columns);
}
