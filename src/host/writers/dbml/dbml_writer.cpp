#include "host/writers/dbml/dbml_writer.h"

#include <algorithm>
#include <set>
#include <unordered_set>
#include <utility>

#include "host/metamodel/casting.h"
#include "host/writers/common/relationships.h"
#include "host/writers/dbml/dbml_notes.h"
#include "host/writers/dbml/dbml_text.h"

namespace {

class DbmlWriter {
 public:
  DbmlWriter(const VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file)
      : model_(model, format), dialect_(findSqlDialect(format.dialect.view())), notes_(model_), out_(file) {
    nameNoSchema();
  }

  void write() {
    writeProject();
    for (const VornClass* table : model_.elements.tables) {
      writeTable(*table);
    }
    for (const VornSQLViewEntity* view : model_.elements.views) {
      writeView(*view);
    }
  }

  const NamedModel& getModel() const { return model_; }

 private:
  using Lines = DbmlNotes::Lines;
  using Columns = std::vector<const VornAttribute*>;
  struct Reference {
    const VornForeignKey* key;
    ColumnLists columns;
  };
  // The indexes of a table, which begin with the first.
  struct IndexBlock {
    const VornClass& table;
    Lines& notes;
    bool isOpen = false;
  };

  // DBML knows a table without a schema as one of "public": where the model has such a schema too, the
  // tables without one need another.
  void nameNoSchema() {
    std::unordered_set<std::string_view> schemas;
    for (const VornDataPackage* schema : model_.elements.schemas) {
      schemas.insert(model_.names.get(*schema));
    }
    if (schemas.contains("public")) {
      for (noSchema_ = "no schema"; schemas.contains(noSchema_);) {
        noSchema_ += '_';
      }
    }
  }

  void writeProject() {
    const std::string name = model_.line(model_.model.getName());
    out_.add("Project ");
    out_.addName(name.empty() ? "model" : name);
    out_.add(" {\n");
    const std::string database =
        dialect_ == nullptr ? model_.line(model_.model.dataStoreVersionName) : std::string(dialect_->name);
    if (!database.empty()) {
      out_.add("  database_type: ");
      out_.addString(database);
      out_.add('\n');
    }
    writeNote(notes_.makeModelLines());
    out_.add("}\n");
  }

  void writeTable(const VornClass& table) {
    Lines notes = notes_.makeNameLines(table);
    for (std::string& line : notes_.makeLines(table.description)) {
      notes.push_back(std::move(line));
    }
    const Columns columns = getColumns(table);
    const VornAttribute* primary = findOnlyColumn(table, table.primaryCandidateKey.get());
    out_.add("\nTable ");
    putQualified(table);
    out_.add(" {\n");
    for (const VornAttribute* column : columns) {
      writeColumn(*column, primary);
    }
    if (columns.empty()) {
      out_.add("  \"no columns\" \"none\" [note: 'The table has no columns; DBML wants one.']\n");
    }
    writeIndexes(table, primary != nullptr, notes);
    const std::vector<Reference> references = takeReferences(table, notes);
    notes_.addRelations(table, notes);
    writeNote(notes);
    out_.add("}\n");
    writeReferences(table, references);
  }

  void writeColumn(const VornAttribute& column, const VornAttribute* primary) {
    out_.add("  ");
    out_.addName(model_.names.get(column));
    out_.add(' ');
    out_.addType(model_.types.get(column.type.get()));
    DbmlSettings settings(out_);
    if (&column == primary) {
      settings.add("pk");
    }
    if (!column.optional) {
      settings.add("not null");
    }
    if (const Lines lines = notes_.makeColumnLines(column); !lines.empty()) {
      settings.add("note: ");
      out_.addString(join(lines, "\n"));
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
    IndexBlock block{.table = table, .notes = notes};
    for (const VornKey* key : table.keyCollection) {
      const bool isPrimary = key == table.primaryCandidateKey.get();
      if (key->getElementType() == VornElementType::candidateKey && !(isPrimary && isPrimaryWritten)) {
        writeIndex(block, *key, getKeyColumns(*key), isPrimary ? "pk" : "unique");
      }
    }
    for (const VornIndex* index : table.indexCollection) {
      if (isOfCandidateKey(*index)) {
        continue;  // as are those that differ from their key in nothing but the order, which is noted
      }
      const Columns columns = getIndexColumns(*index);
      if (index->key == nullptr || index->key->getElementType() != VornElementType::candidateKey ||
          getKeyColumns(*index->key) != columns) {
        writeIndex(block, *index, columns, index->unique ? "unique" : "");
      }
      if (const std::string descending = listDescending(*index); !descending.empty()) {
        notes.push_back("Descending in " + notes_.describe(*index) + ": " + descending);
      }
    }
    out_.add(block.isOpen ? "  }\n" : "");
  }

  // An index, or a key, which DBML takes for one.
  void writeIndex(IndexBlock& block, const auto& object, const Columns& columns, std::string_view setting) {
    if (columns.empty() || !areColumnsOf(block.table, columns)) {
      block.notes.push_back("Without columns: " + notes_.describe(object));
      return;
    }
    out_.add(block.isOpen ? "" : "  indexes {\n", "    ");
    block.isOpen = true;
    putColumns(columns);
    DbmlSettings settings(out_);
    if (!setting.empty()) {
      settings.add(setting);
    }
    if (const std::string_view name = model_.names.get(object); !name.empty()) {
      settings.add("name: ");
      out_.addString(name);
    }
    settings.end();
    out_.add('\n');
  }

  std::string listDescending(const VornIndex& index) const {
    std::string list;
    for (const VornIndexMember* member : getMembers(index)) {
      if (member->sortOrder == VornSortOrderType::descending && member->attribute != nullptr) {
        list.append(list.empty() ? "" : ", ").append(model_.names.get(*member->attribute));
      }
    }
    return list;
  }

  // The foreign keys of the table that DBML can tell; the others become notes.
  std::vector<Reference> takeReferences(const VornClass& table, Lines& notes) {
    std::vector<Reference> references;
    for (const VornKey* key : table.keyCollection) {
      const auto* foreign = dyn_cast<VornForeignKey>(key);
      if (foreign == nullptr) {
        continue;
      }
      ColumnLists lists = splitPairs(getColumnPairs(*foreign));
      if (takeEnds(table, lists)) {
        references.push_back({foreign, std::move(lists)});
        continue;
      }
      std::string columns;
      for (const VornAttribute* column : getKeyColumns(*foreign)) {
        columns.append(columns.empty() ? ": " : ", ").append(model_.names.get(*column));
      }
      std::string note = notes_.describe(*foreign) + columns;
      if (foreign->candidateKey != nullptr) {
        note += " refers to " +
                std::string(model_.names.get(cast<VornClass>(*foreign->candidateKey->getOwner())));
      }
      notes.push_back(std::move(note));
    }
    return references;
  }

  // Whether a reference may join these columns: DBML takes none twice, in whatever direction and order.
  bool takeEnds(const VornClass& table, const ColumnLists& lists) {
    auto [own, referenced] = lists;
    if (own.empty() || !areColumnsOf(table, own) ||
        !areColumnsOf(cast<VornClass>(*referenced.front()->getOwner()), referenced)) {
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

  void writeReferences(const VornClass& table, const std::vector<Reference>& references) {
    if (references.empty()) {
      return;
    }
    const UniqueColumns unique(table);
    for (const Reference& reference : references) {
      writeReference(table, reference, unique);
    }
  }

  void writeReference(const VornClass& table, const Reference& reference, const UniqueColumns& unique) {
    const auto& [key, columns] = reference;
    const bool isOneToOne =
        unique.includes(*key) ||
        (key->associationRole != nullptr && !getEndCount(key->associationRole->multiplicity.view()).isMany);
    out_.add("Ref");
    if (const std::string_view name = model_.names.get(*key); !name.empty()) {
      out_.add(' ');
      out_.addName(name);
    }
    out_.add(": ");
    putQualified(table);
    out_.add('.');
    putColumns(columns.own);
    out_.add(isOneToOne ? " - " : " > ");
    putQualified(cast<VornClass>(*columns.referenced.front()->getOwner()));
    out_.add('.');
    putColumns(columns.referenced);
    const ReferentialActions actions = getActions(*key);
    DbmlSettings settings(out_);
    if (const std::string_view words = getActionWords(actions.onDelete); !words.empty()) {
      settings.add("delete: ", words);
    }
    if (const std::string_view words = getActionWords(actions.onUpdate); !words.empty()) {
      settings.add("update: ", words);
    }
    settings.end();
    out_.add('\n');
  }

  void writeView(const VornSQLViewEntity& view) {
    std::string name = "view ";
    if (const VornDataPackage* schema = getSchema(view)) {
      name.append(model_.names.get(*schema)).append(".");
    }
    name += model_.names.get(view);
    out_.add("\nNote ");
    out_.addName(viewNames_.take(name, "_", ""));
    out_.add(" {\n  ");
    out_.addLines(notes_.makeViewLines(view));
    out_.add("\n}\n");
  }

  void putQualified(const VornNamespaceElement& element) {
    const VornDataPackage* schema = getSchema(element);
    const std::string_view name = schema == nullptr ? std::string_view(noSchema_) : model_.names.get(*schema);
    if (!name.empty()) {
      out_.addName(name);
      out_.add('.');
    }
    out_.addName(model_.names.get(element));
  }
  void putColumns(const Columns& columns) {
    out_.add(columns.size() == 1 ? "" : "(");
    for (const VornAttribute* column : columns) {
      out_.add(column == columns.front() ? "" : ", ");
      out_.addName(model_.names.get(*column));
    }
    out_.add(columns.size() == 1 ? "" : ")");
  }

  void writeNote(const Lines& lines) {
    if (!lines.empty()) {
      out_.add("  Note: ");
      out_.addLines(lines);
      out_.add('\n');
    }
  }

  NamedModel model_;
  const SqlDialect* dialect_;  // that the user asked for
  DbmlNotes notes_;
  DbmlText out_;
  std::string noSchema_;
  std::set<Columns> ends_;  // of the references
  UniqueTexts viewNames_;
};

}  // namespace

void writeModelAsDbml(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                      VornLog& log) {
  DbmlWriter writer(model, format, file);
  writer.write();
  writer.getModel().tellOf(log);
}
