#include "host/writers/common/relational_model.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

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
          tables.push_back(static_cast<const VornClass*>(element));
          break;
        case VornElementType::sqlViewEntity:
          views.push_back(static_cast<const VornSQLViewEntity*>(element));
          break;
        case VornElementType::association:
          associations.push_back(static_cast<const VornAssociation*>(element));
          break;
        case VornElementType::generalization:
          generalizations.push_back(static_cast<const VornGeneralization*>(element));
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
      return static_cast<const VornDataPackage*>(package);
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
  std::vector<ColumnPair> pairs;
  if (key.candidateKey == nullptr ||
      key.attributeCollection.count() != key.candidateKey->attributeCollection.count()) {
    return pairs;
  }
  if (key.attributeCollection.count() == 1) {  // most have one
    pairs.push_back({key.attributeCollection[0], key.candidateKey->attributeCollection[0]});
    return pairs;
  }
  const std::vector<const VornAttribute*> referenced = getKeyColumns(*key.candidateKey);
  std::unordered_set<const VornAttribute*> free(referenced.begin(), referenced.end());
  std::unordered_map<const VornAttribute*, const VornAttribute*> mapped;
  for (const VornAssociationRoleNameMap* map : key.roleNameMapCollection) {
    mapped.emplace(map->destinationAttribute.get(), map->sourceAttribute.get());
  }
  std::unordered_map<std::string_view, const VornAttribute*> byName;
  for (const VornAttribute* column : referenced) {
    byName.emplace(column->getName().view(), column);
  }
  const auto take = [&](ColumnPair& pair, const VornAttribute* column) {
    if (pair.referenced == nullptr && free.erase(column) > 0) {
      pair.referenced = column;
    }
  };
  for (const VornAttribute* column : getKeyColumns(key)) {
    pairs.push_back({column, nullptr});
  }
  for (ColumnPair& pair : pairs) {
    if (const auto map = mapped.find(pair.own); map != mapped.end()) {
      take(pair, map->second);
    }
  }
  for (ColumnPair& pair : pairs) {
    if (const auto namesake = byName.find(pair.own->getName().view()); namesake != byName.end()) {
      take(pair, namesake->second);
    }
  }
  auto next = referenced.begin();
  for (ColumnPair& pair : pairs) {
    for (; pair.referenced == nullptr; ++next) {
      take(pair, *next);
    }
  }
  return pairs;
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
