// Comments that a database keeps with its tables, views and columns.
#include "host/writers/sql/sql_script.h"

namespace {

std::string makeLiteral(SqlScript& script, const VornModelObject& element) {
  const std::string text = separateMarks(script.texts(element.description), script.dialect);
  const std::size_t limit = script.dialect.commentLimit;
  if (text.size() <= limit) {
    return quoteLiteral(text, script.dialect);
  }
  constexpr std::string_view kEllipsis = "...";
  return quoteLiteral(std::string(cutUtf8(text, limit - kEllipsis.size())) += kEllipsis, script.dialect);
}

// The property that the usual tools show as a description. Elements without a schema are in that of the
// database's owner.
void writeProperty(SqlScript& script, const VornNamespaceElement& element, std::string_view kind,
                   const VornModelObject* column) {
  const auto quote = [&](std::string_view text) { return quoteLiteral(text, script.dialect); };
  const VornDataPackage* schema = getSchema(element);
  script.out.add("EXEC sp_addextendedproperty @name = N'MS_Description', @value = ",
                 makeLiteral(script, column == nullptr ? element : *column),
                 ", @level0type = N'SCHEMA', @level0name = ",
                 quote(schema == nullptr ? "dbo" : script.names.get(*schema)), ", @level1type = N'", kind,
                 "', @level1name = ", quote(script.names.get(element)));
  if (column != nullptr) {
    script.out.add(", @level2type = N'COLUMN', @level2name = ", quote(script.names.get(*column)));
  }
  script.out.add(";\n");
}

}  // namespace

void writeElementComment(SqlScript& script, const VornNamespaceElement& element, std::string_view kind) {
  if (element.description.empty()) {
    return;
  }
  if (script.dialect.comments == CommentStyle::extendedProperty) {
    writeProperty(script, element, kind, nullptr);
  } else if (script.dialect.comments == CommentStyle::statement) {
    // All but one call a view a table here.
    const std::string_view word = script.dialect.id == DialectId::postgresql ? kind : "TABLE";
    script.out.add("COMMENT ON ", word, ' ', script.qualified(element), " IS ", makeLiteral(script, element),
                   ";\n");
  }
}

void writeColumnComment(SqlScript& script, const VornClass& table, const VornAttribute& column) {
  if (column.description.empty()) {
    return;
  }
  if (script.dialect.comments == CommentStyle::extendedProperty) {
    writeProperty(script, table, "TABLE", &column);
  } else if (script.dialect.comments == CommentStyle::statement) {
    script.out.add("COMMENT ON COLUMN ", script.qualified(table), '.', script.identifier(column), " IS ",
                   makeLiteral(script, column), ";\n");
  }
}

std::string makeCommentClause(SqlScript& script, const VornModelObject& element) {
  return element.description.empty() || script.dialect.comments != CommentStyle::clause
             ? ""
             : " COMMENT " + makeLiteral(script, element);
}
