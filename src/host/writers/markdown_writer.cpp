#include "host/writers/markdown_writer.h"

#include <unordered_map>

#include "host/metamodel/store_model.h"
#include "host/std/output_format.h"
#include "host/writers/common/relationships.h"
#include "host/writers/common/sql_types.h"
#include "host/writers/markdown/markdown_page.h"
#include "host/writers/markdown/table_lists.h"

namespace {

class MarkdownWriter {
 public:
  MarkdownWriter(const VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file)
      : model_(model),
        relational_(model),
        dialect_(getSqlDialect(model, format.dialect.view())),
        types_(dialect_, model, format),
        page_(relational_, format.logicalNames, file),
        lists_(relational_, page_) {}

  void write() {
    page_.add("# ");
    if (model_.getName().empty()) {
      page_.add("Data dictionary");
    } else {
      page_.addText(model_.getName());
    }
    page_.add("\n\n");
    page_.addParagraphs(model_.description);
    writeFigures();
    groupBySchema();
    page_.add("## Contents\n\n");
    for (const Group& group : groups_) {
      writeContents(group);
    }
    for (const Group& group : groups_) {
      writeGroup(group);
    }
  }

  const Utf8Texts& getTexts() const { return page_.texts; }

 private:
  struct Group {
    const VornDataPackage* schema;
    std::vector<const VornClass*> tables = {};
    std::vector<const VornSQLViewEntity*> views = {};
  };

  // The document.
  void writeFigures() {
    std::size_t columns = 0;
    for (const VornClass* table : relational_.tables) {
      columns += table->featureCollection.count();
    }
    page_.add("| | |\n|---|---|\n");
    if (!model_.dataStoreVersionName.empty()) {
      page_.add("| Database | ");
      page_.addText(model_.dataStoreVersionName);
      page_.add(" |\n");
    }
    page_.add("| Types as in | ", dialect_.system, " |\n");
    page_.add("| Tables | ", relational_.tables.size(), " |\n| Columns of tables | ", columns,
              " |\n| Views | ", relational_.views.size(), " |\n");
    page_.add("| Relationships | ", relational_.associations.size(), " |\n\n");
  }

  void groupBySchema() {
    std::unordered_map<const VornDataPackage*, std::size_t> places;
    for (const VornDataPackage* schema : relational_.schemas) {
      places[schema] = groups_.size();
      groups_.push_back({schema});
    }
    places[nullptr] = groups_.size();
    groups_.push_back({nullptr});
    for (const VornClass* table : relational_.tables) {
      groups_[places.at(getSchema(*table))].tables.push_back(table);
    }
    for (const VornSQLViewEntity* view : relational_.views) {
      groups_[places.at(getSchema(*view))].views.push_back(view);
    }
    std::erase_if(groups_, [](const Group& group) { return group.tables.empty() && group.views.empty(); });
  }

  void writeContents(const Group& group) {
    putGroupTitle("**", group, "**\n\n");
    const auto writeEntry = [&](const VornClassifier& element, std::string_view kind) {
      page_.add("- ");
      page_.addLink(&element);
      if (const VornString& other = getPreferredName(element, !page_.logical);
          other != getPreferredName(element, page_.logical)) {
        page_.add(", ");
        page_.addText(other);
      }
      page_.add(kind, '\n');
    };
    for (const VornClass* table : group.tables) {
      writeEntry(*table, "");
    }
    for (const VornSQLViewEntity* view : group.views) {
      writeEntry(*view, " (view)");
    }
    page_.add('\n');
  }

  void writeGroup(const Group& group) {
    putGroupTitle("## ", group, "\n\n");
    if (group.schema != nullptr) {
      page_.addParagraphs(group.schema->description);
    }
    for (const VornClass* table : group.tables) {
      writeTable(*table);
    }
    for (const VornSQLViewEntity* view : group.views) {
      writeView(*view);
    }
  }

  void putGroupTitle(std::string_view before, const Group& group, std::string_view after) {
    page_.add(before);
    if (group.schema != nullptr) {
      page_.add("Schema ");
      page_.addName(*group.schema);
    } else {
      page_.add(groups_.size() > 1 ? "Without a schema" : "Tables and views");
    }
    page_.add(after);
  }

  // A table or view.
  void writeHead(const VornClassifier& element) {
    page_.add("### <a id=\"", page_.getAnchor(element), "\"></a>");
    page_.addName(element);
    page_.add("\n\n");
    const bool hasTwoNames = !element.getName().empty() && !element.physicalName.empty() &&
                             element.getName() != element.physicalName;
    if (hasTwoNames) {
      page_.add(page_.logical ? "Physical name: " : "Logical name: ");
      page_.addText(page_.logical ? element.physicalName : element.getName());
      page_.add(".\n");
    }
    std::string_view separator = "Synonyms: ";
    for (const VornSynonym* synonym : element.synonymCollection) {
      page_.add(separator);
      page_.addName(*synonym);
      separator = ", ";
    }
    const bool hasSynonyms = element.synonymCollection.count() > 0;
    page_.add(hasSynonyms ? ".\n" : "", hasTwoNames || hasSynonyms ? "\n" : "");
    page_.addParagraphs(element.description);
  }

  void writeTable(const VornClass& table) {
    writeHead(table);
    const std::vector<const VornAttribute*> columns = getColumns(table);
    if (columns.empty()) {
      page_.add("No columns.\n\n");
    } else {
      const KeyMarks marks(table);
      putColumnHead("Type | Required | Key | ");
      for (const VornAttribute* column : columns) {
        putColumnNames(*column);
        page_.addWords(types_.get(column->type.get()));
        page_.add(" | ", column->optional ? "" : "yes", " | ", marks.get(*column), " | ");
        putRemarks(*column);
        page_.add(" |\n");
      }
      page_.add('\n');
    }
    lists_.write(table);
  }

  void writeView(const VornSQLViewEntity& view) {
    writeHead(view);
    if (view.featureCollection.count() > 0) {
      putColumnHead("");
      for (const VornFeature* column : view.featureCollection) {
        putColumnNames(*column);
        putRemarks(static_cast<const VornStructuralFeature&>(*column));
        page_.add(" |\n");
      }
      page_.add('\n');
    }
    std::string_view separator = "Reads ";
    for (const VornClassifier* source : view.sourceElementCollection) {
      page_.add(separator);
      page_.addLink(source);
      separator = ", ";
    }
    page_.add(view.sourceElementCollection.count() > 0 ? ".\n\n" : "");
    page_.addStatement(view.viewStatement);
  }

  void putColumnHead(std::string_view more) {
    page_.add(page_.logical ? "| Name | Physical name | " : "| Column | Logical name | ", more,
              "Description |\n|---|---|");
    for (const char c : more) {
      page_.add(c == '|' ? "---|" : "");
    }
    page_.add("---|\n");
  }
  void putColumnNames(const VornModelObject& column) {
    page_.add("| ");
    page_.addText(page_.logical ? column.getName() : column.physicalName);
    page_.add(" | ");
    page_.addText(page_.logical ? column.physicalName : column.getName());
    page_.add(" | ");
  }

  // The description, the notes, the further text and the texts of the column's domain.
  void putRemarks(const VornStructuralFeature& column) {
    bool isFirst = true;
    const auto put = [&](const VornString& text, std::string_view what, std::string_view separator = "<br>") {
      if (!text.empty()) {
        page_.add(isFirst ? "" : separator, what);
        page_.addText(text, "<br>");
        isFirst = false;
      }
    };
    put(column.description, "");
    for (const VornNote* note : column.noteCollection) {
      put(note->noteText, "");
    }
    put(column.attributeText, "Text: ");
    if (const auto* type = dynamic_cast<const VornDerivedType*>(column.type.get())) {
      std::string_view what = "Domain: ";
      for (const VornString* text : {&type->domainText1, &type->domainText2, &type->domainText3}) {
        put(*text, what, what.empty() ? "; " : "<br>");
        what = text->empty() ? what : "";
      }
    }
  }

  const VornStoreModel& model_;
  RelationalModel relational_;
  const SqlDialect& dialect_;
  SqlTypes types_;
  MarkdownPage page_;
  TableLists lists_;
  std::vector<Group> groups_;
};

}  // namespace

void writeModelAsMarkdown(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                          VornLog& log) {
  MarkdownWriter writer(model, format, file);
  writer.write();
  writer.getTexts().tellOf(log);
}
