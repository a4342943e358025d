// The removal of what a script makes, each only where it is there.
#include "host/writers/sql/sql_script.h"

namespace {

// The text as it stands between the quotes of a literal.
std::string escape(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    escaped += c;
    escaped += c == '\'' ? "'" : "";
  }
  return escaped;
}

void replaceAll(std::string& text, std::string_view placeholder, const std::string& value) {
  for (std::size_t place = text.find(placeholder); place != std::string::npos;
       place = text.find(placeholder, place + value.size())) {
    text.replace(place, placeholder.size(), value);
  }
}

// Writes the statement with {} for the element, {literal} for its name in a literal and {table} for its
// table.
void write(SqlScript& script, std::string_view pattern, const std::string& name,
           const std::string& table = "") {
  if (pattern.empty()) {
    return;
  }
  // The placeholders go first: names may look like them.
  constexpr std::string_view kName = "\1";
  constexpr std::string_view kLiteral = "\2";
  constexpr std::string_view kTable = "\3";
  std::string text(pattern);
  replaceAll(text, "{}", std::string(kName));
  replaceAll(text, "{literal}", std::string(kLiteral));
  replaceAll(text, "{table}", std::string(kTable));
  replaceAll(text, kName, name);
  replaceAll(text, kLiteral, escape(name));
  replaceAll(text, kTable, table);
  script.out.add(text, '\n');
}

std::string qualify(const SqlScript& script, const VornClass& table, const VornModelObject& element) {
  const VornDataPackage* schema = script.dialect.names.hasSchemas ? getSchema(table) : nullptr;
  return (schema == nullptr ? "" : script.identifier(*schema) + '.') + script.identifier(element);
}

void dropForeignKeys(SqlScript& script) {
  for (const VornClass* table : script.elements.tables) {
    for (const VornKey* key : table->keyCollection) {
      if (key->getElementType() == VornElementType::foreignKey && !script.names.get(*key).empty()) {
        write(script, script.dialect.drops.foreignKey, qualify(script, *table, *key),
              script.qualified(*table));
      }
    }
  }
}

}  // namespace

void writeDrops(SqlScript& script) {
  if (!script.format.drops) {
    return;
  }
  const DropStatements& drops = script.dialect.drops;
  script.section("Removal of what this script makes");
  script.out.add(drops.before, drops.before.empty() ? "" : "\n");
  const RelationalModel& elements = script.elements;
  for (auto view = elements.views.rbegin(); view != elements.views.rend(); ++view) {
    write(script, drops.view, script.qualified(**view));
  }
  dropForeignKeys(script);
  for (auto table = elements.tables.rbegin(); table != elements.tables.rend(); ++table) {
    for (const VornSynonym* synonym : (*table)->synonymCollection) {
      write(script, drops.synonym, qualify(script, **table, *synonym));
    }
    write(script, drops.table, script.qualified(**table));
  }
  script.out.add(drops.after, drops.after.empty() ? "" : "\n");
}
