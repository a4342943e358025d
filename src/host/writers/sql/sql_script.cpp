#include "host/writers/sql/sql_script.h"

#include "host/base/pemo.h"
#include "host/writers/sql/client_rules.h"

namespace {

void tell(const VornMessageLiteral& message, int count, const SqlDialect& dialect, VornLog& log) {
  if (count > 0) {
    message.log(log, {VornString(count), VornString(dialect.system)});
  }
}

}  // namespace

SqlScript::SqlScript(const VornStoreModel& storeModel, const VornOutputFormat& choices, VornOutputFile& file)
    : model(storeModel),
      format(choices),
      dialect(getSqlDialect(storeModel, choices.dialect.view())),
      elements(storeModel),
      names(elements, dialect.names, choices.logicalNames, texts),
      types(dialect, storeModel, choices),
      out(file) {
}

std::string SqlScript::identifier(const VornModelObject& element) const {
  return quoteIdentifier(names.get(element), dialect, format.quoteAll);
}

std::string SqlScript::qualified(const VornNamespaceElement& element) const {
  const VornDataPackage* schema = dialect.names.hasSchemas ? getSchema(element) : nullptr;
  return schema == nullptr ? identifier(element) : identifier(*schema) + '.' + identifier(element);
}

std::string SqlScript::list(std::span<const VornAttribute* const> columns) const {
  return join(columns, ", ", [this](const VornAttribute* column) { return identifier(*column); });
}

std::string SqlScript::constraint(const VornKey& key) const {
  return names.get(key).empty() ? "" : "CONSTRAINT " + identifier(key) + ' ';
}

std::string_view SqlScript::type(const VornAttribute& column) {
  const auto changed = changedTypes.find(&column);
  return changed == changedTypes.end() ? types.get(column.type.get()) : std::string_view(changed->second);
}

void SqlScript::comment(std::string_view indent, std::string_view utf8) {
  if (utf8.empty()) {
    return;
  }
  for (const std::string& line : toLines(utf8)) {
    if (line.empty() && !indent.empty()) {
      continue;  // within a statement, a client may take the mark alone for the sign of a line that goes on
    }
    out.add(indent, line.empty() ? "--" : "-- ", toCommentLine(line, dialect), '\n');
  }
}

void SqlScript::section(std::string_view title) {
  out.add("\n-- ", title, '\n');
}

void SqlScript::leaveOut(std::string_view indent, std::string_view what, std::string_view why) {
  ++leftOut;
  out.add(indent, "-- Left out: ", toCommentLine(std::string(what) + ": " + std::string(why) + '.', dialect),
          '\n');
}

void SqlScript::tellOf(VornLog& log) const {
  texts.tellOf(log);
  tell(PEMO::NAMES_CHANGED, static_cast<int>(names.getChanges().size()), dialect, log);
  tell(PEMO::UNKNOWN_COLUMN_TYPES, unknownTypes, dialect, log);
  tell(PEMO::LOSSY_COLUMN_TYPES, lossyTypes, dialect, log);
  tell(PEMO::ELEMENTS_LEFT_OUT, leftOut, dialect, log);
  tell(PEMO::VIEWS_LEFT_OUT, viewsLeftOut, dialect, log);
  tell(PEMO::ACTIONS_LEFT_OUT, lostActions, dialect, log);
}
