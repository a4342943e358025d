#include "host/writers/dbml_writer.h"

#include <algorithm>
#include <unordered_set>

#include "host/metamodel/store_model.h"
#include "host/std/output_format.h"
#include "host/writers/common/names.h"
#include "host/writers/common/relationships.h"
#include "host/writers/common/sql_types.h"
#include "host/writers/common/texts.h"

namespace {

constexpr NameRules kNameRules = {};

// A type that DBML reads without quotes: a word, and numbers in parentheses.
bool isPlainType(std::string_view type) {
  const auto isWordByte = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  const auto isSizeByte = [](char c) { return (c >= '0' && c <= '9') || c == ','; };
  const std::size_t open = type.find('(');
  if (!std::ranges::all_of(type.substr(0, open), isWordByte) || type.empty() || isSizeByte(type.front())) {
    return false;
  }
  return open == std::string_view::npos ||
         (type.back() == ')' &&
          std::ranges::all_of(type.substr(open + 1, type.size() - open - 2), isSizeByte));
}

// The settings of an element, in brackets, once there are any.
class Settings {
 public:
  explicit Settings(TextOutput& out) : out_(out) {}

  template <class... Parts>
  void add(const Parts&... parts) {
    out_.add(isFirst_ ? " [" : ", ", parts...);
    isFirst_ = false;
  }
  void end() { out_.add(isFirst_ ? "" : "]"); }

 private:
  TextOutput& out_;
  bool isFirst_ = true;
};

class DbmlWriter {
 public:
  DbmlWriter(const VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file)
      : model_(model),
        relational_(model),
        supertypes_(getSupertypes(relational_)),
        dialect_(findSqlDialect(format.dialect.view())),
        logical_(format.logicalNames),
        names_(relational_, kNameRules, format.logicalNames, texts_),
        types_(getSqlDialect(model, format.dialect.view())),
        out_(file) {
    nameNoSchema();
  }

  void write() {
    writeProject();
    for (const VornClass* table : relational_.tables) {
      writeTable(*table);
    }
    for (const VornSQLViewEntity* view : relational_.views) {
      writeView(*view);
    }
  }

  const Utf8Texts& getTexts() const { return texts_; }

 private:
  using Lines = std::vector<std::string>;
  using Columns = std::vector<const VornAttribute*>;

  // DBML knows a table without a schema as one of "public": where the model has such a schema too, the
  // tables without one need another.
  void nameNoSchema() {
    std::unordered_set<std::string_view> schemas;
    for (const VornDataPackage* schema : relational_.schemas) {
      schemas.insert(names_.get(*schema));
    }
    if (schemas.contains("public")) {
      for (noSchema_ = "no schema"; schemas.contains(noSchema_);) {
        noSchema_ += '_';
      }
    }
  }

  void writeProject() {
    const std::string name = toOneLine(texts_(model_.getName()));
    out_.add("Project ");
    putName(name.empty() ? "model" : name);
    out_.add(" {\n");
    const std::string database =
        dialect_ == nullptr ? toOneLine(texts_(model_.dataStoreVersionName)) : std::string(dialect_->name);
    if (!database.empty()) {
      out_.add("  database_type: ");
      putString(database);
      out_.add('\n');
    }
    Lines lines = makeLines(model_.description);
    for (const VornDataPackage* schema : relational_.schemas) {
      if (!schema->description.empty()) {
        lines.push_back("Schema " + std::string(names_.get(*schema)) + ":");
        append(lines, makeLines(schema->description));
      }
    }
    writeNote(lines);
    out_.add("}\n");
  }

  void writeTable(const VornClass& table) {
    Lines notes = makeLines(table.description);
    const Columns columns = getColumns(table);
    const VornAttribute* primary = findOnlyColumn(table, table.primaryCandidateKey.get());
    out_.add("\nTable ");
    putQualified(table);
    out_.add(" {\n");
    for (const VornAttribute* column : columns) {
      writeColumn(*column, column == primary);
    }
    if (columns.empty()) {
      out_.add("  \"no columns\" \"none\" [note: 'The table has no columns; DBML wants one.']\n");
    }
    writeIndexes(table, primary != nullptr, notes);
    const std::vector<const VornForeignKey*> references = takeReferences(table, notes);
    addRelations(table, notes);
    writeNote(notes);
    out_.add("}\n");
    writeReferences(table, references);
  }

  void writeColumn(const VornAttribute& column, bool isPrimary) {
    out_.add("  ");
    putName(names_.get(column));
    const std::string_view type = types_.get(column.type.get());
    out_.add(' ');
    if (isPlainType(type)) {
      out_.add(type);
    } else {
      putName(type);
    }
    Settings settings(out_);
    if (isPrimary) {
      settings.add("pk");
    }
    if (!column.optional) {
      settings.add("not null");
    }
    if (const Lines lines = makeColumnNotes(column); !lines.empty()) {
      settings.add("note: ");
      putString(join(lines, "\n"));
    }
    settings.end();
    out_.add('\n');
  }

  // A key's column, when it is the only one and the table's own.
  static const VornAttribute* findOnlyColumn(const VornClass& table, const VornKey* key) {
    if (key == nullptr || key->attributeCollection.count() != 1) {
      return nullptr;
    }
    const Columns columns = getKeyColumns(*key);
    return areColumnsOf(table, columns) ? columns.front() : nullptr;
  }

  void writeIndexes(const VornClass& table, bool isPrimaryWritten, Lines& notes) {
    bool isOpen = false;
    const auto add = [&](const VornModelObject& object, const Columns& columns, std::string_view setting) {
      if (columns.empty() || !areColumnsOf(table, columns)) {
        notes.push_back("Without columns: " + describe(object));
        return;
      }
      out_.add(isOpen ? "" : "  indexes {\n", "    ");
      isOpen = true;
      putColumns(columns);
      Settings settings(out_);
      if (!setting.empty()) {
        settings.add(setting);
      }
      if (const std::string_view name = names_.get(object); !name.empty()) {
        settings.add("name: ");
        putString(name);
      }
      settings.end();
      out_.add('\n');
    };
    for (const VornKey* key : table.keyCollection) {
      const bool isPrimary = key == table.primaryCandidateKey.get();
      if (key->getElementType() == VornElementType::candidateKey && !(isPrimary && isPrimaryWritten)) {
        add(*key, getKeyColumns(*key), isPrimary ? "pk" : "unique");
      }
    }
    for (const VornIndex* index : table.indexCollection) {
      if (isOfCandidateKey(*index)) {
        continue;  // as are those that differ from their key in nothing but the order, which is noted
      }
      Columns columns;
      std::string descending;
      for (const VornIndexMember* member : getMembers(*index)) {
        columns.push_back(member->attribute.get());
        if (member->sortOrder == VornSortOrderType::descending && member->attribute != nullptr) {
          descending.append(descending.empty() ? "" : ", ").append(names_.get(*member->attribute));
        }
      }
      if (index->key == nullptr || index->key->getElementType() != VornElementType::candidateKey ||
          getKeyColumns(*index->key) != columns) {
        add(*index, columns, index->unique ? "unique" : "");
      }
      if (!descending.empty()) {
        notes.push_back("Descending in " + describe(*index) + ": " + descending);
      }
    }
    out_.add(isOpen ? "  }\n" : "");
  }

  // The foreign keys of the table that DBML can tell; the others become notes.
  std::vector<const VornForeignKey*> takeReferences(const VornClass& table, Lines& notes) {
    std::vector<const VornForeignKey*> references;
    for (const VornKey* key : table.keyCollection) {
      const auto* foreign = dynamic_cast<const VornForeignKey*>(key);
      if (foreign == nullptr) {
        continue;
      }
      const std::vector<ColumnPair> pairs = getColumnPairs(*foreign);
      if (takeEnds(table, pairs)) {
        references.push_back(foreign);
        continue;
      }
      std::string columns;
      for (const VornAttribute* column : getKeyColumns(*foreign)) {
        columns.append(columns.empty() ? ": " : ", ").append(names_.get(*column));
      }
      std::string note = describe(*foreign) + columns;
      if (foreign->candidateKey != nullptr) {
        note += " refers to " + describe(*static_cast<const VornClass*>(foreign->candidateKey->getOwner()));
      }
      notes.push_back(std::move(note));
    }
    return references;
  }

  // Whether a reference may join these columns: DBML takes none twice, in whatever direction and order.
  bool takeEnds(const VornClass& table, const std::vector<ColumnPair>& pairs) {
    Columns own;
    Columns referenced;
    for (const ColumnPair& pair : pairs) {
      own.push_back(pair.own);
      referenced.push_back(pair.referenced);
    }
    if (own.empty() || !areColumnsOf(table, own) ||
        !areColumnsOf(static_cast<const VornClass&>(*referenced.front()->getOwner()), referenced)) {
      return false;
    }
    std::ranges::sort(own);
    std::ranges::sort(referenced);
    if (own == referenced) {
      return false;
    }
    if (referenced < own) {
      own.swap(referenced);
    }
    own.push_back(nullptr);
    own.insert(own.end(), referenced.begin(), referenced.end());
    return ends_.insert(std::move(own)).second;
  }

  void writeReferences(const VornClass& table, const std::vector<const VornForeignKey*>& references) {
    if (references.empty()) {
      return;
    }
    const UniqueColumns unique(table);
    for (const VornForeignKey* key : references) {
      Columns own;
      Columns referenced;
      for (const ColumnPair& pair : getColumnPairs(*key)) {
        own.push_back(pair.own);
        referenced.push_back(pair.referenced);
      }
      const bool isOneToOne =
          unique.includes(*key) ||
          (key->associationRole != nullptr && !getEndCount(key->associationRole->multiplicity.view()).isMany);
      out_.add("Ref");
      if (const std::string_view name = names_.get(*key); !name.empty()) {
        out_.add(' ');
        putName(name);
      }
      out_.add(": ");
      putQualified(table);
      out_.add('.');
      putColumns(own);
      out_.add(isOneToOne ? " - " : " > ");
      putQualified(static_cast<const VornClass&>(*referenced.front()->getOwner()));
      out_.add('.');
      putColumns(referenced);
      const ReferentialActions actions = getActions(*key);
      Settings settings(out_);
      if (const std::string_view words = getActionWords(actions.onDelete); !words.empty()) {
        settings.add("delete: ", words);
      }
      if (const std::string_view words = getActionWords(actions.onUpdate); !words.empty()) {
        settings.add("update: ", words);
      }
      settings.end();
      out_.add('\n');
    }
  }

  // Synonyms, supertypes, and the relationships that no foreign key follows: those with the table of the
  // first role that has one.
  void addRelations(const VornClass& table, Lines& notes) {
    std::string synonyms;
    for (const VornSynonym* synonym : table.synonymCollection) {
      synonyms.append(synonyms.empty() ? "Synonyms: " : ", ").append(names_.get(*synonym));
    }
    if (!synonyms.empty()) {
      notes.push_back(std::move(synonyms));
    }
    for (const VornGeneralizationRole* role : table.generalizationRoleCollection) {
      const auto* generalization = static_cast<const VornGeneralization*>(role->getOwner());
      const auto supertype = supertypes_.find(generalization);
      if (role->kind == VornGeneralizationRole::Kind::supertype && supertype != supertypes_.end() &&
          supertype->second == &table) {
        std::string note = "Supertype of ";
        for (const VornGeneralizationRole* other : generalization->roleCollection) {
          if (other->kind == VornGeneralizationRole::Kind::subtype && other->associatedClass != nullptr) {
            note.append(note.back() == ' ' ? "" : ", ").append(names_.get(*other->associatedClass));
          }
        }
        notes.push_back(std::move(note));
      }
    }
    for (const VornAssociationRole* role : table.associationRoleCollection) {
      const auto* association = static_cast<const VornAssociation*>(role->getOwner());
      if (association != nullptr && isFirstTableIn(*association, *role) && !hasForeignKey(*association)) {
        notes.push_back(describe(*association));
      }
    }
  }

  static bool isFirstTableIn(const VornAssociation& association, const VornAssociationRole& role) {
    for (const VornAssociationRole* other : association.roleCollection) {
      if (other->associatedClass != nullptr) {
        return other == &role;
      }
    }
    return false;
  }
  static bool hasForeignKey(const VornAssociation& association) {
    return std::ranges::any_of(association.roleCollection, [](const VornAssociationRole* role) {
      return role->foreignKeyCollection.count() > 0;
    });
  }

  void writeView(const VornSQLViewEntity& view) {
    std::string name = "view ";
    if (const VornDataPackage* schema = getSchema(view)) {
      name.append(names_.get(*schema)).append(".");
    }
    name += names_.get(view);
    while (!viewNames_.insert(name).second) {
      name += '_';
    }
    Lines lines = makeLines(view.description);
    std::string columns;
    for (const VornFeature* column : view.featureCollection) {
      columns.append(columns.empty() ? "Columns: " : ", ")
          .append(toOneLine(texts_(getPreferredName(*column, logical_))));
    }
    if (!columns.empty()) {
      lines.push_back(std::move(columns));
    }
    append(lines, makeLines(view.viewStatement));
    if (lines.empty()) {
      lines.emplace_back("A view without a statement.");
    }
    out_.add("\nNote ");
    putName(name);
    out_.add(" {\n  ");
    putText(lines, "  ");
    out_.add("\n}\n");
  }

  // Texts as lines; none of an empty one.
  Lines makeLines(const VornString& text) { return text.empty() ? Lines() : toLines(texts_(text)); }
  Lines makeColumnNotes(const VornAttribute& column) {
    Lines lines = makeLines(column.description);
    for (const VornNote* note : column.noteCollection) {
      append(lines, makeLines(note->noteText));
    }
    if (!column.attributeText.empty()) {
      append(lines, makeLines(VornString("Text: ") + column.attributeText));
    }
    return lines;
  }
  static void append(Lines& lines, Lines more) {
    lines.insert(lines.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
  }
  static std::string join(const Lines& lines, std::string_view separator) {
    std::string text;
    for (const std::string& line : lines) {
      text.append(&line == lines.data() ? "" : separator).append(line);
    }
    return text;
  }

  // How notes speak of what the document has no name for.
  std::string describe(const VornModelObject& object) {
    switch (object.getElementType()) {
      case VornElementType::candidateKey:
        return "key " + std::string(names_.get(object));
      case VornElementType::foreignKey:
        return "foreign key " + std::string(names_.get(object));
      case VornElementType::index:
        return "index " + std::string(names_.get(object));
      case VornElementType::classType:
        return std::string(names_.get(object));
      case VornElementType::association:
        return "Relationship " + toOneLine(texts_(getPreferredName(object, logical_))) +
               describeRoles(static_cast<const VornAssociation&>(object));
      default:
        return "";
    }
  }
  std::string describeRoles(const VornAssociation& association) {
    std::string text;
    for (const VornAssociationRole* role : association.roleCollection) {
      text += text.empty() ? ": " : ", ";
      text += role->associatedClass == nullptr ? std::string("no table")
                                               : std::string(names_.get(*role->associatedClass));
      if (!role->multiplicity.empty()) {
        text.append(" ").append(toOneLine(texts_(role->multiplicity)));
      }
      if (!role->getName().empty()) {
        text.append(" (").append(toOneLine(texts_(role->getName()))).append(")");
      }
    }
    return text;
  }

  void putQualified(const VornNamespaceElement& element) {
    const VornDataPackage* schema = getSchema(element);
    const std::string_view name = schema == nullptr ? std::string_view(noSchema_) : names_.get(*schema);
    if (!name.empty()) {
      putName(name);
      out_.add('.');
    }
    putName(names_.get(element));
  }
  void putColumns(const Columns& columns) {
    out_.add(columns.size() == 1 ? "" : "(");
    for (const VornAttribute* column : columns) {
      out_.add(column == columns.front() ? "" : ", ");
      putName(names_.get(*column));
    }
    out_.add(columns.size() == 1 ? "" : ")");
  }

  void writeNote(const Lines& lines) {
    if (!lines.empty()) {
      out_.add("  Note: ");
      putText(lines, "  ");
      out_.add('\n');
    }
  }
  void putText(const Lines& lines, std::string_view indent) {
    if (lines.size() == 1) {
      putString(lines.front());
      return;
    }
    out_.add("'''");
    for (const std::string& line : lines) {
      out_.add('\n', line.empty() ? "" : indent);
      putEscaped(line, '\'');
    }
    out_.add("'''");
  }
  void putName(std::string_view name) {
    out_.add('"');
    putEscaped(name, '"');
    out_.add('"');
  }
  void putString(std::string_view text) {
    out_.add('\'');
    putEscaped(text, '\'');
    out_.add('\'');
  }
  void putEscaped(std::string_view text, char quote) {
    for (std::size_t start = 0;;) {
      const std::size_t end =
          std::min(text.find_first_of(quote == '"' ? "\\\"\n" : "\\'\n", start), text.size());
      out_.add(text.substr(start, end - start));
      if (end == text.size()) {
        return;
      }
      out_.add('\\', text[end] == '\n' ? 'n' : text[end]);
      start = end + 1;
    }
  }

  const VornStoreModel& model_;
  RelationalModel relational_;
  std::unordered_map<const VornGeneralization*, const VornClass*> supertypes_;
  const SqlDialect* dialect_;  // that the user asked for
  bool logical_;
  Utf8Texts texts_;
  ModelNames names_;
  SqlTypes types_;
  TextOutput out_;
  std::string noSchema_;
  std::set<Columns> ends_;  // of the references
  std::unordered_set<std::string> viewNames_;
};

}  // namespace

void writeModelAsDbml(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                      VornLog& log) {
  DbmlWriter writer(model, format, file);
  writer.write();
  writer.getTexts().tellOf(log);
}
