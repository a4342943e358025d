#include "host/writers/common/relationships.h"

#include <algorithm>
#include <optional>

#include "host/base/text.h"
#include "host/metamodel/casting.h"

namespace {

using Kind = DiagramEdge::Kind;
constexpr EndCount kExactlyOne = {.isOptional = false, .isMany = false};
constexpr EndCount kAtMostOne = {.isOptional = true, .isMany = false};

std::vector<const VornAttribute*> toSet(std::vector<const VornAttribute*> columns) {
  std::ranges::sort(columns);
  return columns;
}

const VornClass* getTable(const VornKey& key) {
  return cast<VornClass>(key.getOwner());
}

class DiagramMaker {
 public:
  Diagram make(const RelationalModel& model) {
    for (const VornAssociation* association : model.associations) {
      addAssociation(*association);
    }
    for (const VornGeneralization* generalization : model.generalizations) {
      addGeneralization(*generalization);
    }
    for (const VornClass* table : model.tables) {
      addForeignKeys(*table);
    }
    return std::move(diagram_);
  }

 private:
  void addAssociation(const VornAssociation& association) {
    if (!joinsTables(association)) {
      return;
    }
    const auto isComposite = [](const VornAssociationRole* role) {
      return role->aggregation == VornAggregationType::composite;
    };
    const bool isIdentifying = std::ranges::any_of(association.roleCollection, isComposite);
    if (association.roleCollection.count() == 2) {
      const VornAssociationRole& first = *association.roleCollection[0];
      const VornAssociationRole& second = *association.roleCollection[1];
      diagram_.edges.push_back({Kind::relationship, first.associatedClass.get(), second.associatedClass.get(),
                                getEndCount(first.multiplicity.view()),
                                getEndCount(second.multiplicity.view()), isIdentifying, &association,
                                &first});
      return;
    }
    diagram_.hubs.push_back(&association);
    for (const VornAssociationRole* role : association.roleCollection) {
      if (role->associatedClass != nullptr) {
        diagram_.edges.push_back({Kind::relationship, &association, role->associatedClass.get(), kExactlyOne,
                                  getEndCount(role->multiplicity.view()), isIdentifying, role, nullptr});
      }
    }
  }

  void addGeneralization(const VornGeneralization& generalization) {
    std::vector<const VornClass*> supertypes;
    std::vector<const VornClass*> subtypes;
    for (const VornGeneralizationRole* role : generalization.roleCollection) {
      if (role->associatedClass != nullptr) {
        (role->kind == VornGeneralizationRole::Kind::supertype ? supertypes : subtypes)
            .push_back(role->associatedClass.get());
      }
    }
    if (supertypes.empty() || subtypes.empty()) {
      return;
    }
    const VornModelElement* above = supertypes.front();
    if (supertypes.size() > 1) {
      diagram_.hubs.push_back(&generalization);
      above = &generalization;
      for (const VornClass* supertype : supertypes) {
        addInheritance(*supertype, generalization, generalization);
      }
    }
    for (const VornClass* subtype : subtypes) {
      addInheritance(*above, *subtype, generalization);
    }
  }

  void addInheritance(const VornModelElement& above, const VornModelElement& below,
                      const VornGeneralization& generalization) {
    diagram_.edges.push_back(
        {Kind::inheritance, &above, &below, kExactlyOne, kAtMostOne, true, &generalization, nullptr});
  }

  void addForeignKeys(const VornClass& table) {
    std::optional<UniqueColumns> unique;
    std::set<const VornAttribute*> primary;
    for (const VornKey* key : table.keyCollection) {
      const auto* foreign = dyn_cast<VornForeignKey>(key);
      if (foreign == nullptr || foreign->candidateKey == nullptr || isShown(*foreign)) {
        continue;
      }
      if (!unique) {
        unique.emplace(table);
        if (table.primaryCandidateKey != nullptr) {
          for (const VornAttribute* column : table.primaryCandidateKey->attributeCollection) {
            primary.insert(column);
          }
        }
      }
      const auto isOptional = [](const VornAttribute* column) { return column->optional; };
      const auto isPrimary = [&](const VornAttribute* column) { return primary.contains(column); };
      diagram_.edges.push_back(
          {Kind::relationship,
           getTable(*foreign->candidateKey),
           &table,
           std::ranges::any_of(foreign->attributeCollection, isOptional) ? kAtMostOne : kExactlyOne,
           {.isOptional = true, .isMany = !unique->includes(*foreign)},
           foreign->attributeCollection.count() > 0 &&
               std::ranges::all_of(foreign->attributeCollection, isPrimary),
           foreign,
           nullptr});
    }
  }

  static bool isShown(const VornForeignKey& key) {
    if (const VornAssociationRole* role = key.associationRole.get()) {
      const auto* association = cast<VornAssociation>(role->getOwner());
      return association != nullptr && joinsTables(*association);
    }
    return key.generalizationRole != nullptr;
  }

  Diagram diagram_;
};

}  // namespace

std::string_view getActionWords(VornReferentialActionType::Value action) {
  constexpr std::string_view kWords[] = {"", "no action", "cascade", "restrict", "set null", "set default"};
  return kWords[action];
}

EndCount getEndCount(std::string_view multiplicity) {
  const std::size_t dots = multiplicity.find("..");
  const std::string_view most = dots == std::string_view::npos ? multiplicity : multiplicity.substr(dots + 2);
  const std::optional<std::int32_t> least = parseInteger(multiplicity);
  const std::optional<std::int32_t> limit = parseInteger(most);
  return {.isOptional = !least || *least < 1, .isMany = !limit || *limit > 1};
}

UniqueColumns::UniqueColumns(const VornClass& table) {
  for (const VornKey* key : table.keyCollection) {
    if (key->getElementType() == VornElementType::candidateKey && key->attributeCollection.count() > 0) {
      sets_.insert(toSet(getKeyColumns(*key)));
    }
  }
  for (const VornIndex* index : table.indexCollection) {
    if (index->unique && index->indexMemberCollection.count() > 0) {
      sets_.insert(toSet(getIndexColumns(*index)));
    }
  }
}

bool UniqueColumns::includes(const VornKey& key) const {
  const std::vector<const VornAttribute*> columns = toSet(getKeyColumns(key));
  return sets_.contains(columns) ||
         std::ranges::any_of(columns, [&](const VornAttribute* column) { return sets_.contains({column}); });
}

KeyMarks::KeyMarks(const VornClass& table) {
  for (const VornKey* key : table.keyCollection) {
    const std::uint8_t mark = key == table.primaryCandidateKey.get()                 ? 1
                              : key->getElementType() == VornElementType::foreignKey ? 2
                                                                                     : 4;
    for (const VornAttribute* column : key->attributeCollection) {
      marks_[column] |= mark;
    }
  }
}

std::string_view KeyMarks::get(const VornAttribute& column) const {
  constexpr std::string_view kLetters[] = {"", "PK", "FK", "PK, FK", "UK", "PK, UK", "FK, UK", "PK, FK, UK"};
  const auto found = marks_.find(&column);
  return kLetters[found == marks_.end() ? 0 : found->second];
}

std::unordered_map<const VornGeneralization*, const VornClass*> getSupertypes(const RelationalModel& model) {
  std::unordered_map<const VornGeneralization*, const VornClass*> supertypes;
  for (const VornGeneralization* generalization : model.generalizations) {
    for (const VornGeneralizationRole* role : generalization->roleCollection) {
      if (role->kind == VornGeneralizationRole::Kind::supertype && role->associatedClass != nullptr) {
        supertypes.emplace(generalization, role->associatedClass.get());
        break;
      }
    }
  }
  return supertypes;
}

bool joinsTables(const VornAssociation& association) {
  const auto hasTable = [](const VornAssociationRole* role) { return role->associatedClass != nullptr; };
  return std::ranges::count_if(association.roleCollection, hasTable) > 1;
}

bool isFirstTableIn(const VornAssociation& association, const VornAssociationRole& role) {
  for (const VornAssociationRole* other : association.roleCollection) {
    if (other->associatedClass != nullptr) {
      return other == &role;
    }
  }
  return false;
}

Diagram makeDiagram(const RelationalModel& model) {
  return DiagramMaker().make(model);
}

const VornString& getLabel(const DiagramEdge& edge, bool logical) {
  static const VornString none;
  const VornString& own = edge.role == nullptr ? none : getPreferredName(*edge.role, logical);
  return own.empty() ? getPreferredName(*edge.meaning, logical) : own;
}
