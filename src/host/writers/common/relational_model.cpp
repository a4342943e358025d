#include "host/writers/common/relational_model.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/metamodel/casting.h"

namespace {

template <class T>
std::vector<const T*> byPosition(const auto& members) {
  std::vector<const T*> sorted;
  sorted.reserve(members.count());
  for (const auto* member : members) {
    sorted.push_back(static_cast<const T*>(member));
  }
  if (!std::ranges::is_sorted(sorted, {}, &T::position)) {
    std::ranges::stable_sort(sorted, {}, &T::position);
  }
  return sorted;
}

// Pairs the columns of a foreign key with those that it refers to, each of which is taken once.
class ColumnMatcher {
 public:
  // The key refers to one of as many columns.
  explicit ColumnMatcher(const VornForeignKey& key)
      : key_(key),
        referenced_(getKeyColumns(*key.candidateKey)),
        free_(referenced_.begin(), referenced_.end()) {
    for (const VornAttribute* column : getKeyColumns(key)) {
      pairs_.push_back({column, nullptr});
    }
  }

  void pairByNameMaps() {
    std::unordered_map<const VornAttribute*, const VornAttribute*> mapped;
    for (const VornAssociationRoleNameMap* map : key_.roleNameMapCollection) {
      mapped.emplace(map->destinationAttribute.get(), map->sourceAttribute.get());
    }
    for (ColumnPair& pair : pairs_) {
      if (const auto map = mapped.find(pair.own); map != mapped.end()) {
        take(pair, map->second);
      }
    }
  }

  void pairByNames() {
    std::unordered_map<std::string_view, const VornAttribute*> byName;
    for (const VornAttribute* column : referenced_) {
      byName.emplace(column->getName().view(), column);
    }
    for (ColumnPair& pair : pairs_) {
      if (const auto namesake = byName.find(pair.own->getName().view()); namesake != byName.end()) {
        take(pair, namesake->second);
      }
    }
  }

  void pairInOrder() {
    auto next = referenced_.begin();
    for (ColumnPair& pair : pairs_) {
      for (; pair.referenced == nullptr; ++next) {
        take(pair, *next);
      }
    }
  }

  std::vector<ColumnPair> takePairs() { return std::move(pairs_); }

 private:
  void take(ColumnPair& pair, const VornAttribute* column) {
    if (pair.referenced == nullptr && free_.erase(column) > 0) {
      pair.referenced = column;
    }
  }

  const VornForeignKey& key_;
  std::vector<const VornAttribute*> referenced_;
  std::unordered_set<const VornAttribute*> free_;
  std::vector<ColumnPair> pairs_;
};

bool hasName(const VornPackage& package) {
  return !package.getName().empty() || !package.physicalName.empty();
}

bool haveSameMembers(std::vector<const VornAttribute*> some, std::vector<const VornAttribute*> others) {
  std::ranges::sort(some);
  std::ranges::sort(others);
  return some == others;
}

}  // namespace

RelationalModel::RelationalModel(const VornStoreModel& model) {
  for (const VornDesignPackage* package : model.designPackageCollection) {
    for (const VornNamespaceElement* element : package->elementCollection) {
      switch (element->getElementType()) {
        case VornElementType::classType:
          tables.push_back(cast<VornClass>(element));
          break;
        case VornElementType::sqlViewEntity:
          views.push_back(cast<VornSQLViewEntity>(element));
          break;
        case VornElementType::association:
          associations.push_back(cast<VornAssociation>(element));
          break;
        case VornElementType::generalization:
          generalizations.push_back(cast<VornGeneralization>(element));
          break;
        default:
          break;
      }
    }
  }
  for (const VornDataPackage* package : model.dataPackageCollection) {
    if (package->importedElementCollection.count() > 0 && hasName(*package)) {
      schemas.push_back(package);
    }
  }
}

const VornString& getPreferredName(const VornModelObject& object, bool logical) {
  const VornString& first = logical ? object.getName() : object.physicalName;
  const VornString& second = logical ? object.physicalName : object.getName();
  return first.empty() ? second : first;
}

const VornDataPackage* getSchema(const VornNamespaceElement& element) {
  for (const VornPackage* package : element.importingPackageCollection) {
    if (hasName(*package)) {
      return cast<VornDataPackage>(package);
    }
  }
  return nullptr;
}

std::vector<const VornAttribute*> getColumns(const VornClass& table) {
  return byPosition<VornAttribute>(table.featureCollection);
}

std::vector<const VornIndexMember*> getMembers(const VornIndex& index) {
  return byPosition<VornIndexMember>(index.indexMemberCollection);
}

std::vector<const VornAttribute*> getIndexColumns(const VornIndex& index) {
  std::vector<const VornAttribute*> columns;
  for (const VornIndexMember* member : getMembers(index)) {
    columns.push_back(member->attribute.get());
  }
  return columns;
}

std::vector<const VornAttribute*> getKeyColumns(const VornKey& key) {
  std::vector<const VornAttribute*> columns;
  for (const VornAttribute* column : key.attributeCollection) {
    columns.push_back(column);
  }
  if (key.index == nullptr || key.index->indexMemberCollection.count() != columns.size()) {
    return columns;
  }
  std::vector<const VornAttribute*> ordered = getIndexColumns(*key.index);
  return haveSameMembers(ordered, columns) ? ordered : columns;
}

bool areColumnsOf(const VornClass& table, std::span<const VornAttribute* const> columns) {
  return std::ranges::all_of(columns, [&](const VornAttribute* column) {
    return column != nullptr && column->getOwner() == &table;
  });
}

bool isOfCandidateKey(const VornIndex& index) {
  const VornKey* key = index.key.get();
  return key != nullptr && key->getElementType() == VornElementType::candidateKey && index.unique &&
         getIndexColumns(index) == getKeyColumns(*key) &&
         std::ranges::none_of(index.indexMemberCollection, [](const VornIndexMember* member) {
           return member->sortOrder == VornSortOrderType::descending;
         });
}

std::vector<ColumnPair> getColumnPairs(const VornForeignKey& key) {
  if (key.candidateKey == nullptr ||
      key.attributeCollection.count() != key.candidateKey->attributeCollection.count()) {
    return {};
  }
  if (key.attributeCollection.count() == 1) {  // most have one
    return {{key.attributeCollection[0], key.candidateKey->attributeCollection[0]}};
  }
  ColumnMatcher matcher(key);
  matcher.pairByNameMaps();
  matcher.pairByNames();
  matcher.pairInOrder();
  return matcher.takePairs();
}

ColumnLists splitPairs(const std::vector<ColumnPair>& pairs) {
  ColumnLists columns;
  for (const ColumnPair& pair : pairs) {
    columns.own.push_back(pair.own);
    columns.referenced.push_back(pair.referenced);
  }
  return columns;
}

ReferentialActions getActions(const VornForeignKey& key) {
  ReferentialActions actions;
  const VornAssociationRole* own = key.associationRole.get();
  for (const VornAssociationRole* role : {own == nullptr ? own : own->getOpposite(), own}) {
    if (role == nullptr) {
      continue;
    }
    if (actions.onDelete == VornReferentialActionType::unspecified) {
      actions.onDelete = role->referentialAction1;
    }
    if (actions.onUpdate == VornReferentialActionType::unspecified) {
      actions.onUpdate = role->referentialAction2;
    }
  }
  return actions;
}
