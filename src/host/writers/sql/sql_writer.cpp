#include "host/writers/sql/sql_writer.h"

#include "host/metamodel/casting.h"
#include "host/metamodel/store_model.h"
#include "host/writers/sql/sql_script.h"

namespace {

void writeHeading(SqlScript& script) {
  // First of all: it also says how the client reads comments.
  if (!script.dialect.prologue.empty()) {
    script.out.add(script.dialect.prologue, "\n\n");
  }
  const std::string name = toOneLine(script.texts(script.model.getName()));
  script.comment("", (name.empty() ? "A model" : name) + " for " + std::string(script.dialect.system) + " (" +
                         std::string(script.dialect.versions) + ").");
  script.comment("", script.texts(script.model.description));
  if (script.format.isTransaction && script.dialect.begin.empty()) {
    script.out.add('\n');
    script.comment("", std::string(script.dialect.system) +
                           " has no transaction that takes in the making of tables, so there is none here.");
  } else if (script.format.isTransaction) {
    script.out.add('\n', script.dialect.begin, '\n');
  }
}

std::string_view getKind(VornElementType type) {
  switch (type) {
    case VornElementType::databaseSchema:
      return "schema";
    case VornElementType::classType:
      return "table";
    case VornElementType::sqlViewEntity:
      return "view";
    case VornElementType::synonym:
      return "synonym";
    case VornElementType::attribute:
      return "column";
    case VornElementType::index:
      return "index";
    default:
      return "key";
  }
}

void writeNameChanges(SqlScript& script) {
  const std::vector<NameChange>& changes = script.names.getChanges();
  if (changes.empty()) {
    return;
  }
  script.out.add("\n-- Names that had to be changed:\n");
  for (const NameChange& change : changes) {
    const auto* owner = cast<VornModelObject>(change.object->getOwner());
    std::string line(getKind(change.object->getElementType()));
    line += ' ';
    if (owner != nullptr && owner->getElementType() == VornElementType::classType) {
      line.append(script.names.get(*owner)) += '.';
    }
    line.append(change.written).append(change.wanted.empty() ? " had no name" : " was: ");
    script.comment("", line + toOneLine(change.wanted));
  }
}

}  // namespace

void writeModelAsSql(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                     VornLog& log) {
  SqlScript script(model, format, file);
  planColumnTypes(script);
  planElements(script);
  writeHeading(script);
  writeDrops(script);
  writeSchemas(script);
  writeTables(script);
  writeForeignKeys(script);
  writeViews(script);
  if (format.isTransaction && !script.dialect.commit.empty()) {
    script.out.add('\n', script.dialect.commit, '\n');
  }
  writeNameChanges(script);
  script.tellOf(log);
}
