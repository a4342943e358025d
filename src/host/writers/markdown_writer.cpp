#include "host/writers/markdown_writer.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "host/metamodel/store_model.h"
#include "host/std/output_format.h"
#include "host/writers/common/relationships.h"
#include "host/writers/common/sql_types.h"
#include "host/writers/common/texts.h"
#include "host/writers/markdown_text.h"

namespace {

constexpr std::string_view kNoName = "(no name)";

class MarkdownWriter {
 public:
  MarkdownWriter(const VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file)
      : model_(model),
        relational_(model),
        supertypes_(getSupertypes(relational_)),
        logical_(format.logicalNames),
        dialect_(getSqlDialect(model, format.dialect.view())),
        types_(dialect_),
        out_(file) {
    for (const VornClass* table : relational_.tables) {
      addAnchor(*table, "table-");
    }
    for (const VornSQLViewEntity* view : relational_.views) {
      addAnchor(*view, "view-");
    }
  }

  void write() {
    out_.add("# ");
    if (model_.getName().empty()) {
      out_.add("Data dictionary");
    } else {
      putText(model_.getName());
    }
    out_.add("\n\n");
    putParagraphs(model_.description);
    writeFigures();
    groupBySchema();
    out_.add("## Contents\n\n");
    for (const Group& group : groups_) {
      writeContents(group);
    }
    for (const Group& group : groups_) {
      writeGroup(group);
    }
  }

  const Utf8Texts& getTexts() const { return texts_; }

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
    out_.add("| | |\n|---|---|\n");
    if (!model_.dataStoreVersionName.empty()) {
      out_.add("| Database | ");
      putText(model_.dataStoreVersionName);
      out_.add(" |\n");
    }
    out_.add("| Types as in | ", dialect_.system, " |\n");
    out_.add("| Tables | ", relational_.tables.size(), " |\n| Columns of tables | ", columns,
             " |\n| Views | ", relational_.views.size(), " |\n");
    out_.add("| Relationships | ", relational_.associations.size(), " |\n\n");
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
      out_.add("- ");
      putLink(&element);
      if (const VornString& other = getPreferredName(element, !logical_);
          other != getPreferredName(element, logical_)) {
        out_.add(", ");
        putText(other);
      }
      out_.add(kind, '\n');
    };
    for (const VornClass* table : group.tables) {
      writeEntry(*table, "");
    }
    for (const VornSQLViewEntity* view : group.views) {
      writeEntry(*view, " (view)");
    }
    out_.add('\n');
  }

  void writeGroup(const Group& group) {
    putGroupTitle("## ", group, "\n\n");
    if (group.schema != nullptr) {
      putParagraphs(group.schema->description);
    }
    for (const VornClass* table : group.tables) {
      writeTable(*table);
    }
    for (const VornSQLViewEntity* view : group.views) {
      writeView(*view);
    }
  }

  void putGroupTitle(std::string_view before, const Group& group, std::string_view after) {
    out_.add(before);
    if (group.schema != nullptr) {
      out_.add("Schema ");
      putName(*group.schema);
    } else {
      out_.add(groups_.size() > 1 ? "Without a schema" : "Tables and views");
    }
    out_.add(after);
  }

  // A table or view.
  void writeHead(const VornClassifier& element) {
    out_.add("### <a id=\"", anchors_.at(&element), "\"></a>");
    putName(element);
    out_.add("\n\n");
    const bool hasTwoNames = !element.getName().empty() && !element.physicalName.empty() &&
                             element.getName() != element.physicalName;
    if (hasTwoNames) {
      out_.add(logical_ ? "Physical name: " : "Logical name: ");
      putText(logical_ ? element.physicalName : element.getName());
      out_.add(".\n");
    }
    std::string_view separator = "Synonyms: ";
    for (const VornSynonym* synonym : element.synonymCollection) {
      out_.add(separator);
      putName(*synonym);
      separator = ", ";
    }
    const bool hasSynonyms = element.synonymCollection.count() > 0;
    out_.add(hasSynonyms ? ".\n" : "", hasTwoNames || hasSynonyms ? "\n" : "");
    putParagraphs(element.description);
  }

  void writeTable(const VornClass& table) {
    writeHead(table);
    const std::vector<const VornAttribute*> columns = getColumns(table);
    if (columns.empty()) {
      out_.add("No columns.\n\n");
    } else {
      const KeyMarks marks(table);
      putColumnHead("Type | Required | Key | ");
      for (const VornAttribute* column : columns) {
        putColumnNames(*column);
        putMarkdown(out_, types_.get(column->type.get()));
        out_.add(" | ", column->optional ? "" : "yes", " | ", marks.get(*column), " | ");
        putRemarks(*column);
        out_.add(" |\n");
      }
      out_.add('\n');
    }
    writeKeys(table);
    writeIndexes(table);
    writeForeignKeys(table);
    writeRelationships(table);
    writeInheritance(table);
  }

  void writeView(const VornSQLViewEntity& view) {
    writeHead(view);
    if (view.featureCollection.count() > 0) {
      putColumnHead("");
      for (const VornFeature* column : view.featureCollection) {
        putColumnNames(*column);
        putRemarks(static_cast<const VornStructuralFeature&>(*column));
        out_.add(" |\n");
      }
      out_.add('\n');
    }
    std::string_view separator = "Reads ";
    for (const VornClassifier* source : view.sourceElementCollection) {
      out_.add(separator);
      putLink(source);
      separator = ", ";
    }
    out_.add(view.sourceElementCollection.count() > 0 ? ".\n\n" : "");
    if (!view.viewStatement.empty()) {
      putMarkdownCode(out_, texts_(view.viewStatement), "sql");
    }
  }

  void putColumnHead(std::string_view more) {
    out_.add(logical_ ? "| Name | Physical name | " : "| Column | Logical name | ", more,
             "Description |\n|---|---|");
    for (const char c : more) {
      out_.add(c == '|' ? "---|" : "");
    }
    out_.add("---|\n");
  }
  void putColumnNames(const VornModelObject& column) {
    out_.add("| ");
    putText(logical_ ? column.getName() : column.physicalName);
    out_.add(" | ");
    putText(logical_ ? column.physicalName : column.getName());
    out_.add(" | ");
  }

  // The description, the notes, the further text and the texts of the column's domain.
  void putRemarks(const VornStructuralFeature& column) {
    bool isFirst = true;
    const auto put = [&](const VornString& text, std::string_view what, std::string_view separator = "<br>") {
      if (!text.empty()) {
        out_.add(isFirst ? "" : separator, what);
        putMarkdown(out_, texts_(text), "<br>");
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

  // What follows a table's columns: lists, each under its title once there is an entry.
  class List {
   public:
    List(MarkdownWriter& writer, std::string_view title) : out_(writer.out_), title_(title) {}
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() { out_.add(isEmpty_ ? "" : "\n"); }

    void begin() {
      out_.add(isEmpty_ ? title_ : "", isEmpty_ ? ":\n\n- " : "- ");
      isEmpty_ = false;
    }

   private:
    TextOutput& out_;
    std::string_view title_;
    bool isEmpty_ = true;
  };

  void writeKeys(const VornClass& table) {
    List list(*this, "Keys");
    for (const VornKey* key : table.keyCollection) {
      if (key->getElementType() == VornElementType::candidateKey) {
        list.begin();
        putNameAndColon(*key);
        putNames(getKeyColumns(*key));
        out_.add(key == table.primaryCandidateKey.get() ? " (primary key)" : " (unique)");
        putAside(key->description);
        out_.add('\n');
      }
    }
  }

  void writeIndexes(const VornClass& table) {
    List list(*this, "Indexes");
    for (const VornIndex* index : table.indexCollection) {
      if (isOfCandidateKey(*index)) {
        continue;
      }
      list.begin();
      putNameAndColon(*index);
      std::string_view separator;
      for (const VornIndexMember* member : getMembers(*index)) {
        if (member->attribute != nullptr) {
          out_.add(separator);
          putName(*member->attribute);
          out_.add(member->sortOrder == VornSortOrderType::descending ? " descending" : "");
          separator = ", ";
        }
      }
      out_.add(index->unique ? " (unique)\n" : "\n");
    }
  }

  void writeForeignKeys(const VornClass& table) {
    List list(*this, "Foreign keys");
    for (const VornKey* key : table.keyCollection) {
      const auto* foreign = dynamic_cast<const VornForeignKey*>(key);
      if (foreign == nullptr) {
        continue;
      }
      list.begin();
      putNameAndColon(*key);
      const std::vector<ColumnPair> pairs = getColumnPairs(*foreign);
      if (pairs.empty()) {
        putNames(getKeyColumns(*key));
      }
      std::vector<const VornAttribute*> referenced;
      std::string_view separator;
      for (const ColumnPair& pair : pairs) {
        out_.add(separator);
        putName(*pair.own);
        separator = ", ";
        referenced.push_back(pair.referenced);
      }
      if (foreign->candidateKey != nullptr) {
        out_.add(" refers to ");
        putLink(static_cast<const VornClass*>(foreign->candidateKey->getOwner()));
        out_.add(referenced.empty() ? "" : " (");
        putNames(referenced);
        out_.add(referenced.empty() ? "" : ")");
      }
      const ReferentialActions actions = getActions(*foreign);
      if (const std::string_view words = getActionWords(actions.onDelete); !words.empty()) {
        out_.add("; on delete ", words);
      }
      if (const std::string_view words = getActionWords(actions.onUpdate); !words.empty()) {
        out_.add("; on update ", words);
      }
      putAside(key->description);
      out_.add('\n');
    }
  }

  // "Customer (1) lives at Address (0..*)": each table has it from its own end. Of more than two tables the
  // first has it whole.
  void writeRelationships(const VornClass& table) {
    List list(*this, "Relationships");
    for (const VornAssociationRole* role : table.associationRoleCollection) {
      const auto* association = static_cast<const VornAssociation*>(role->getOwner());
      if (association == nullptr) {
        continue;
      }
      const VornAssociationRole* other = getOpposite(*role);
      if (other == nullptr && role != association->roleCollection[0]) {
        continue;
      }
      list.begin();
      putEnd(*role);
      if (other != nullptr) {
        out_.add(" **");
        putName(role->getName().empty() && role->physicalName.empty()
                    ? static_cast<const VornModelObject&>(*association)
                    : *role);
        out_.add("** ");
        putEnd(*other);
      } else {
        out_.add(", **");
        putName(*association);
        out_.add("**");
        putOtherEnds(*association);
      }
      out_.add(role->aggregation == VornAggregationType::composite ? ", which is part of it" : "");
      putAside(role->description);
      putAside(association->description);
      out_.add('\n');
    }
  }

  void putOtherEnds(const VornAssociation& association) {
    for (const VornAssociationRole* role : association.roleCollection) {
      if (role != association.roleCollection[0]) {
        out_.add(", ");
        putEnd(*role);
        if (!role->getName().empty()) {
          out_.add(" ");
          putName(*role);
        }
      }
    }
  }

  void putEnd(const VornAssociationRole& role) {
    putLink(role.associatedClass.get());
    if (!role.multiplicity.empty()) {
      out_.add(" (");
      putText(role.multiplicity);
      out_.add(")");
    }
  }

  void writeInheritance(const VornClass& table) {
    List list(*this, "Inheritance");
    for (const VornGeneralizationRole* role : table.generalizationRoleCollection) {
      const auto* generalization = static_cast<const VornGeneralization*>(role->getOwner());
      const auto found = supertypes_.find(generalization);
      const VornClass* supertype = found == supertypes_.end() ? nullptr : found->second;
      list.begin();
      if (role->kind == VornGeneralizationRole::Kind::subtype) {
        out_.add("Subtype of ");
        putLink(supertype);
      } else if (supertype == &table) {
        putSubtypes(*generalization);
      } else {
        out_.add("Supertype like ");
        putLink(supertype);
      }
      out_.add(" (");
      putName(*generalization);
      out_.add(")");
      putAside(generalization->description);
      out_.add('\n');
    }
  }
  void putSubtypes(const VornGeneralization& generalization) {
    std::string_view separator = "Supertype of ";
    for (const VornGeneralizationRole* role : generalization.roleCollection) {
      if (role->kind == VornGeneralizationRole::Kind::subtype) {
        out_.add(separator);
        putLink(role->associatedClass.get());
        separator = ", ";
      }
    }
  }

  // Names, links and texts.
  void addAnchor(const VornClassifier& element, std::string anchor) {
    if (const VornDataPackage* schema = getSchema(element)) {
      anchor.append(texts_(getPreferredName(*schema, logical_))).append("-");
    }
    anchor = makeMarkdownAnchor(anchor.append(texts_(getPreferredName(element, logical_))));
    std::string unique = anchor;
    for (int& number = numbers_[anchor]; !taken_.insert(unique).second;) {
      unique = anchor + "-" + std::to_string(++number + 1);
    }
    anchors_[&element] = std::move(unique);
  }

  void putLink(const VornClassifier* element) {
    if (element == nullptr) {
      out_.add("no table");
      return;
    }
    const VornString& name = getPreferredName(*element, logical_);
    putMarkdownLink(out_, isBlank(name) ? kNoName : texts_(name), anchors_.at(element));
  }
  bool isBlank(const VornString& name) {
    const auto isLetterOrMark = [](char c) { return c > ' ' && c < 127; };
    return std::ranges::none_of(name.view(), isLetterOrMark) && toOneLine(texts_(name)).empty();
  }
  void putName(const VornModelObject& object) {
    const VornString& name = getPreferredName(object, logical_);
    if (isBlank(name)) {
      out_.add(kNoName);
    } else {
      putText(name);
    }
  }
  void putNameAndColon(const VornModelObject& object) {
    if (const VornString& name = getPreferredName(object, logical_); !isBlank(name)) {
      out_.add("**");
      putText(name);
      out_.add("**: ");
    }
  }
  void putNames(const std::vector<const VornAttribute*>& columns) {
    for (const VornAttribute* column : columns) {
      out_.add(column == columns.front() ? "" : ", ");
      putName(*column);
    }
  }
  void putText(const VornString& text) { putMarkdown(out_, texts_(text)); }
  void putAside(const VornString& text) {
    if (!text.empty()) {
      out_.add(". ");
      putText(text);
    }
  }
  void putParagraphs(const VornString& text) {
    if (!text.empty()) {
      putMarkdownParagraphs(out_, texts_(text));
    }
  }

  const VornStoreModel& model_;
  RelationalModel relational_;
  std::unordered_map<const VornGeneralization*, const VornClass*> supertypes_;
  bool logical_;
  const SqlDialect& dialect_;
  SqlTypes types_;
  Utf8Texts texts_;
  TextOutput out_;
  std::vector<Group> groups_;
  std::unordered_map<const VornClassifier*, std::string> anchors_;
  std::unordered_set<std::string> taken_;         // anchors
  std::unordered_map<std::string, int> numbers_;  // of those that wanted the same one
};

}  // namespace

void writeModelAsMarkdown(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                          VornLog& log) {
  MarkdownWriter writer(model, format, file);
  writer.write();
  writer.getTexts().tellOf(log);
}
