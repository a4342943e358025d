#include "host/writers/dbml/dbml_notes.h"

#include <algorithm>

#include "host/metamodel/casting.h"
#include "host/writers/common/relationships.h"

namespace {

using Lines = DbmlNotes::Lines;

void append(Lines& lines, Lines more) {
  lines.insert(lines.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

bool hasForeignKey(const VornAssociation& association) {
  return std::ranges::any_of(association.roleCollection, [](const VornAssociationRole* role) {
    return role->foreignKeyCollection.count() > 0;
  });
}

}  // namespace

DbmlNotes::DbmlNotes(NamedModel& model) : model_(model), supertypes_(getSupertypes(model.elements)) {
}

Lines DbmlNotes::makeLines(const VornString& text) {
  if (text.empty()) {
    return {};
  }
  Lines lines = toLines(model_.texts(text));
  const auto isBlank = [](const std::string& line) { return trimBlanks(line).empty(); };
  return std::ranges::all_of(lines, isBlank) ? Lines() : lines;
}

Lines DbmlNotes::makeNameLines(const VornModelObject& element) {
  return model_.names.getShortened().contains(&element) ? Lines{"Name: " + model_.lineOfName(element)}
                                                        : Lines();
}

Lines DbmlNotes::makeModelLines() {
  Lines lines = makeLines(model_.model.description);
  for (const VornDataPackage* schema : model_.elements.schemas) {
    append(lines, makeNameLines(*schema));
    if (Lines description = makeLines(schema->description); !description.empty()) {
      lines.push_back("Schema " + std::string(model_.names.get(*schema)) + ":");
      append(lines, std::move(description));
    }
  }
  return lines;
}

Lines DbmlNotes::makeColumnLines(const VornAttribute& column) {
  Lines lines = makeNameLines(column);
  append(lines, makeLines(column.description));
  for (const VornNote* note : column.noteCollection) {
    append(lines, makeLines(note->noteText));
  }
  if (Lines text = makeLines(column.attributeText); !text.empty()) {
    text.front().insert(0, "Text: ");
    append(lines, std::move(text));
  }
  return lines;
}

Lines DbmlNotes::makeViewLines(const VornSQLViewEntity& view) {
  Lines lines = makeNameLines(view);
  append(lines, makeLines(view.description));
  std::string columns;
  for (const VornFeature* column : view.featureCollection) {
    columns.append(columns.empty() ? "Columns: " : ", ").append(model_.lineOfName(*column));
  }
  if (!columns.empty()) {
    lines.push_back(std::move(columns));
  }
  append(lines, makeLines(view.viewStatement));
  if (lines.empty()) {
    lines.emplace_back("A view without a statement.");
  }
  return lines;
}

void DbmlNotes::addRelations(const VornClass& table, Lines& notes) {
  std::string synonyms;
  for (const VornSynonym* synonym : table.synonymCollection) {
    synonyms.append(synonyms.empty() ? "Synonyms: " : ", ").append(model_.names.get(*synonym));
  }
  if (!synonyms.empty()) {
    notes.push_back(std::move(synonyms));
  }
  for (const VornGeneralizationRole* role : table.generalizationRoleCollection) {
    const auto* generalization = cast<VornGeneralization>(role->getOwner());
    const auto supertype = supertypes_.find(generalization);
    if (role->kind != VornGeneralizationRole::Kind::supertype || supertype == supertypes_.end() ||
        supertype->second != &table) {
      continue;
    }
    std::string note = "Supertype of ";
    for (const VornGeneralizationRole* other : generalization->roleCollection) {
      if (other->kind == VornGeneralizationRole::Kind::subtype && other->associatedClass != nullptr) {
        note.append(note.back() == ' ' ? "" : ", ").append(model_.names.get(*other->associatedClass));
      }
    }
    if (note.back() != ' ') {
      notes.push_back(std::move(note));
    }
  }
  for (const VornAssociationRole* role : table.associationRoleCollection) {
    const auto* association = cast<VornAssociation>(role->getOwner());
    if (association != nullptr && isFirstTableIn(*association, *role) && !hasForeignKey(*association)) {
      notes.push_back(describe(*association));
    }
  }
}

std::string DbmlNotes::describe(const VornKey& key) const {
  const bool isForeign = key.getElementType() == VornElementType::foreignKey;
  return (isForeign ? "foreign key " : "key ") + std::string(model_.names.get(key));
}

std::string DbmlNotes::describe(const VornIndex& index) const {
  return "index " + std::string(model_.names.get(index));
}

std::string DbmlNotes::describe(const VornAssociation& association) {
  std::string text = "Relationship " + model_.lineOfName(association);
  std::string_view separator = ": ";
  for (const VornAssociationRole* role : association.roleCollection) {
    text.append(separator);
    text += role->associatedClass == nullptr ? std::string("no table")
                                             : std::string(model_.names.get(*role->associatedClass));
    if (!role->multiplicity.empty()) {
      text += " " + model_.line(role->multiplicity);
    }
    if (!role->getName().empty()) {
      text += " (" + model_.line(role->getName()) + ")";
    }
    separator = ", ";
  }
  return text;
}
