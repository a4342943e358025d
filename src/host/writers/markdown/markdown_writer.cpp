#include "host/writers/markdown/markdown_writer.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/metamodel/casting.h"
#include "host/metamodel/store_model.h"
#include "host/writers/common/names.h"
#include "host/writers/common/output_format.h"
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

  const MarkdownPage& getPage() const { return page_; }

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
    explainRemarks();
  }

  // What begins the parts of a column's description, where the model has such.
  void explainRemarks() {
    bool haveTexts = false;
    bool haveDomains = false;
    for (const VornClass* table : relational_.tables) {
      for (const VornFeature* feature : table->featureCollection) {
        const auto& column = cast<VornAttribute>(*feature);
        const auto* type = dyn_cast<VornDerivedType>(column.type.get());
        haveTexts |= !column.attributeText.empty();
        haveDomains |= type != nullptr &&
                       !(type->domainText1.empty() && type->domainText2.empty() && type->domainText3.empty());
      }
    }
    page_.add(
        haveTexts ? "In descriptions of columns, \"Text\" begins the further text that a column has.\n" : "",
        haveDomains ? "\"Domain\" begins the texts of the domain that a column's values are from.\n" : "",
        haveTexts || haveDomains ? "\n" : "");
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

  // By name, whatever the case of its letters.
  void writeContents(const Group& group) {
    page_.add("**");
    putGroupTitle(group);
    page_.add("**\n\n");
    std::vector<std::pair<std::string, const VornClassifier*>> entries;
    const auto collect = [&](const auto& elements) {
      for (const VornClassifier* element : elements) {
        entries.emplace_back(foldCase(page_.getReference(*element)), element);
      }
    };
    collect(group.tables);
    collect(group.views);
    std::ranges::stable_sort(entries, {}, &std::pair<std::string, const VornClassifier*>::first);
    for (const auto& [name, element] : entries) {
      page_.add("- ");
      page_.addLink(element);
      if (const VornString* other = findOtherName(*element)) {
        page_.add(", ");
        page_.addRepeatedText(*other, false, " ");
      }
      page_.add(element->getElementType() == VornElementType::classType ? "" : " (view)", '\n');
    }
    page_.add('\n');
  }

  // The logical name where elements go by the physical one, or the other way round; null where that says
  // nothing new.
  const VornString* findOtherName(const VornModelObject& object) const {
    const VornString& other = getPreferredName(object, !page_.logical);
    return other == getPreferredName(object, page_.logical) ? nullptr : &other;
  }

  void writeGroup(const Group& group) {
    page_.add("## ");
    putGroupTitle(group);
    page_.add("\n\n");
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

  void putGroupTitle(const Group& group) {
    if (group.schema != nullptr) {
      page_.add("Schema ");
      page_.addName(*group.schema);
    } else {
      page_.add(groups_.size() > 1 ? "Without a schema" : "Tables and views");
    }
  }

  // A table or view.
  void writeHead(const VornClassifier& element) {
    page_.add("### <a id=\"", page_.getAnchor(element), "\"></a>");
    page_.addName(element);
    page_.add("\n\n");
    const VornString* other = findOtherName(element);
    if (other != nullptr) {
      page_.add(page_.logical ? "Physical name: " : "Logical name: ");
      page_.addText(*other);
      page_.add(".\n");
    }
    std::string_view separator = "Synonyms: ";
    for (const VornSynonym* synonym : element.synonymCollection) {
      page_.add(separator);
      page_.addName(*synonym);
      separator = ", ";
    }
    const bool hasSynonyms = element.synonymCollection.count() > 0;
    page_.add(hasSynonyms ? ".\n" : "", other != nullptr || hasSynonyms ? "\n" : "");
    page_.addParagraphs(element.description);
  }

  void writeTable(const VornClass& table) {
    writeHead(table);
    const std::vector<const VornAttribute*> columns = getColumns(table);
    if (columns.empty()) {
      page_.add("No columns.\n\n");
    } else {
      const KeyMarks marks(table);
      const bool haveOtherNames = putColumnHead(columns, "Type | Required | Key | ");
      for (const VornAttribute* column : columns) {
        putColumnNames(*column, haveOtherNames);
        page_.addWords(withoutZeroScale(types_.get(column->type.get())));
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
      const bool haveOtherNames = putColumnHead(view.featureCollection, "");
      for (const VornFeature* column : view.featureCollection) {
        putColumnNames(*column, haveOtherNames);
        putRemarks(cast<VornStructuralFeature>(*column));
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

  // Returns whether columns have other names, too: there is a column for these.
  bool putColumnHead(const auto& columns, std::string_view more) {
    const bool haveOtherNames = std::ranges::any_of(
        columns, [&](const VornModelObject* column) { return findOtherName(*column) != nullptr; });
    const std::string_view other = !haveOtherNames ? ""
                                   : page_.logical ? "Physical name | "
                                                   : "Logical name | ";
    page_.add(page_.logical ? "| Name | " : "| Column | ", other, more, "Description |\n|---|",
              haveOtherNames ? "---|" : "");
    for (const char c : more) {
      page_.add(c == '|' ? "---|" : "");
    }
    page_.add("---|\n");
    return haveOtherNames;
  }
  void putColumnNames(const VornModelObject& column, bool haveOtherNames) {
    page_.add("| ");
    page_.addText(getPreferredName(column, page_.logical));
    page_.add(" | ");
    if (haveOtherNames) {
      if (const VornString* other = findOtherName(column)) {
        page_.addText(*other);
      }
      page_.add(" | ");
    }
  }

  // The description, the notes, the further text and the texts of the column's domain.
  void putRemarks(const VornStructuralFeature& column) {
    bool isFirst = true;
    const auto begin = [&](std::string_view separator, std::string_view what) {
      page_.add(isFirst ? "" : separator, what);
      isFirst = false;
    };
    const auto put = [&](const VornString& text, std::string_view what) {
      if (!text.empty()) {
        begin("<br>", what);
        page_.addText(text, "<br>");
      }
    };
    put(column.description, "");
    for (const VornNote* note : column.noteCollection) {
      put(note->noteText, "");
    }
    put(column.attributeText, "Text: ");
    const auto* type = dyn_cast<VornDerivedType>(column.type.get());
    if (type == nullptr) {
      return;
    }
    std::string_view what = "Domain: ";
    for (const VornString* text : {&type->domainText1, &type->domainText2, &type->domainText3}) {
      if (!text->empty()) {
        begin(what.empty() ? "; " : "<br>", what);
        page_.addRepeatedText(*text, !told_.contains(type), "<br>");
        what = "";
      }
    }
    if (what.empty()) {
      told_.insert(type);
    }
  }

  const VornStoreModel& model_;
  RelationalModel relational_;
  const SqlDialect& dialect_;
  SqlTypes types_;
  MarkdownPage page_;
  TableLists lists_;
  std::vector<Group> groups_;
  std::unordered_set<const VornDerivedType*> told_;  // the texts of these domains stand with a column
};

}  // namespace

void writeModelAsMarkdown(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                          VornLog& log) {
  MarkdownWriter writer(model, format, file);
  writer.write();
  writer.getPage().tellOf(log);
}
