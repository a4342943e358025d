#include "host/writers/markdown/table_lists.h"

#include "host/metamodel/casting.h"
#include "host/writers/common/relationships.h"

namespace {

// A list under its title, once there is an entry.
class List {
 public:
  List(MarkdownPage& page, std::string_view title) : page_(page), title_(title) {}
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List() { page_.add(isEmpty_ ? "" : "\n"); }

  void begin() {
    page_.add(isEmpty_ ? title_ : "", isEmpty_ ? ":\n\n- " : "- ");
    isEmpty_ = false;
  }

 private:
  MarkdownPage& page_;
  std::string_view title_;
  bool isEmpty_ = true;
};

}  // namespace

TableLists::TableLists(const RelationalModel& model, MarkdownPage& page)
    : page_(page), supertypes_(getSupertypes(model)) {
}

void TableLists::write(const VornClass& table) {
  writeKeys(table);
  writeIndexes(table);
  writeForeignKeys(table);
  writeRelationships(table);
  writeInheritance(table);
}

void TableLists::writeKeys(const VornClass& table) {
  List list(page_, "Keys");
  for (const VornKey* key : table.keyCollection) {
    if (key->getElementType() == VornElementType::candidateKey) {
      list.begin();
      page_.addNameAndColon(*key);
      page_.addReferences(getKeyColumns(*key));
      page_.add(key == table.primaryCandidateKey.get() ? " (primary key)" : " (unique)");
      page_.addAside(key->description);
      page_.add('\n');
    }
  }
}

void TableLists::writeIndexes(const VornClass& table) {
  List list(page_, "Indexes");
  for (const VornIndex* index : table.indexCollection) {
    if (isOfCandidateKey(*index)) {
      continue;
    }
    list.begin();
    page_.addNameAndColon(*index);
    std::string_view separator;
    for (const VornIndexMember* member : getMembers(*index)) {
      if (member->attribute != nullptr) {
        page_.add(separator);
        page_.addReference(*member->attribute);
        page_.add(member->sortOrder == VornSortOrderType::descending ? " descending" : "");
        separator = ", ";
      }
    }
    page_.add(index->unique ? " (unique)\n" : "\n");
  }
}

void TableLists::writeForeignKeys(const VornClass& table) {
  List list(page_, "Foreign keys");
  for (const VornKey* key : table.keyCollection) {
    if (const auto* foreign = dyn_cast<VornForeignKey>(key)) {
      list.begin();
      writeForeignKey(*foreign);
    }
  }
}

void TableLists::writeForeignKey(const VornForeignKey& key) {
  page_.addNameAndColon(key);
  const auto [own, referenced] = splitPairs(getColumnPairs(key));
  page_.addReferences(own.empty() ? getKeyColumns(key) : own);
  if (key.candidateKey != nullptr) {
    page_.add(" refers to ");
    page_.addLink(cast<VornClass>(key.candidateKey->getOwner()));
    page_.add(referenced.empty() ? "" : " (");
    page_.addReferences(referenced);
    page_.add(referenced.empty() ? "" : ")");
  }
  const ReferentialActions actions = getActions(key);
  if (const std::string_view words = getActionWords(actions.onDelete); !words.empty()) {
    page_.add("; on delete ", words);
  }
  if (const std::string_view words = getActionWords(actions.onUpdate); !words.empty()) {
    page_.add("; on update ", words);
  }
  page_.addAside(key.description);
  page_.add('\n');
}

// "Customer (1) lives at Address (0..*)": each table has it from its own end. Of more than two tables the
// first has it whole.
void TableLists::writeRelationships(const VornClass& table) {
  List list(page_, "Relationships");
  for (const VornAssociationRole* role : table.associationRoleCollection) {
    const auto* association = cast<VornAssociation>(role->getOwner());
    if (association == nullptr) {
      continue;
    }
    const VornAssociationRole* other = role->getOpposite();
    if (other == nullptr && !isFirstTableIn(*association, *role)) {
      continue;
    }
    list.begin();
    writeEnd(*role);
    if (other != nullptr) {
      page_.add(" ");
      page_.addBoldName(role->getName().empty() && role->physicalName.empty()
                            ? static_cast<const VornModelObject&>(*association)
                            : *role);
      page_.add(" ");
      writeEnd(*other);
    } else {
      page_.add(", ");
      page_.addBoldName(*association);
      writeOtherEnds(*association, *role);
    }
    page_.add(role->aggregation == VornAggregationType::composite ? ", which is part of it" : "");
    page_.addAside(role->description);
    page_.addAside(association->description);
    page_.add('\n');
  }
}

void TableLists::writeOtherEnds(const VornAssociation& association, const VornAssociationRole& first) {
  for (const VornAssociationRole* role : association.roleCollection) {
    if (role != &first) {
      page_.add(", ");
      writeEnd(*role);
      if (!role->getName().empty()) {
        page_.add(" ");
        page_.addName(*role);
      }
    }
  }
}

void TableLists::writeEnd(const VornAssociationRole& role) {
  page_.addLink(role.associatedClass.get());
  if (!role.multiplicity.empty()) {
    page_.add(" (");
    page_.addText(role.multiplicity);
    page_.add(")");
  }
}

void TableLists::writeInheritance(const VornClass& table) {
  List list(page_, "Inheritance");
  for (const VornGeneralizationRole* role : table.generalizationRoleCollection) {
    const auto* generalization = cast<VornGeneralization>(role->getOwner());
    const auto found = supertypes_.find(generalization);
    const VornClass* supertype = found == supertypes_.end() ? nullptr : found->second;
    list.begin();
    if (role->kind == VornGeneralizationRole::Kind::subtype) {
      page_.add("Subtype of ");
      page_.addLink(supertype);
    } else if (supertype == &table) {
      writeSubtypes(*generalization);
    } else {
      page_.add("Supertype like ");
      page_.addLink(supertype);
    }
    page_.add(" (");
    page_.addReference(*generalization);
    page_.add(")");
    page_.addRepeatedAside(generalization->description, supertype == &table);
    page_.add('\n');
  }
}
void TableLists::writeSubtypes(const VornGeneralization& generalization) {
  std::string_view separator = "Supertype of ";
  for (const VornGeneralizationRole* role : generalization.roleCollection) {
    if (role->kind == VornGeneralizationRole::Kind::subtype) {
      page_.add(separator);
      page_.addLink(role->associatedClass.get());
      separator = ", ";
    }
  }
}
