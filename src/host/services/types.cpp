#include "host/services/types.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/metamodel/casting.h"
#include "host/metamodel/feature.h"
#include "host/metamodel/store_model.h"

namespace {

VornDerivedType* asDerivedType(VornType* type) {
  const bool isDerived = type != nullptr && type->getElementType() == VornElementType::derivedType;
  return isDerived ? cast<VornDerivedType>(type) : nullptr;
}

// What two types have in common when they are the same.
auto identityOf(const VornDerivedType& type) {
  return std::tuple<const VornString&, const VornString&, const VornString&, const VornString&, std::int32_t,
                    std::int32_t, const VornString&, const VornString&, const VornString&, bool,
                    const VornConcreteType*>(
      type.getName(), type.physicalName, type.description, type.dataType, type.length, type.scale,
      type.domainText1, type.domainText2, type.domainText3, type.userDomain, type.derivedFrom);
}

struct SameIdentity {
  bool operator()(const VornDerivedType* a, const VornDerivedType* b) const {
    return identityOf(*a) == identityOf(*b);
  }
};

struct IdentityHash {
  std::size_t operator()(const VornDerivedType* type) const {
    std::size_t sum = 0;
    const auto mix = [&sum](const auto& part) {
      sum = sum * 31 + std::hash<std::remove_cvref_t<decltype(part)>>{}(part);
    };
    std::apply([&](const auto&... parts) { (mix(parts), ...); }, identityOf(*type));
    return sum;
  }
};

// The derived types of the model, followed by those outside the model that they derive from.
std::vector<VornDerivedType*> collectDerivedTypes(const VornModel& model) {
  std::vector<VornDerivedType*> types;
  std::unordered_set<const VornDerivedType*> known;
  const auto collect = [&](VornType* type) {
    VornDerivedType* derived = asDerivedType(type);
    if (derived != nullptr && known.insert(derived).second) {
      types.push_back(derived);
    }
  };
  for (VornType* type : model.typeCollection) {
    collect(type);
  }
  std::size_t next = 0;
  while (next < types.size()) {
    collect(types[next++]->derivedFrom);
  }
  return types;
}

// Orders each type after the one it derives from.
void sortByDepth(std::vector<VornDerivedType*>& types) {
  std::unordered_map<const VornDerivedType*, std::size_t> depths;
  for (VornDerivedType* start : types) {
    std::vector<const VornDerivedType*> path;
    const VornDerivedType* type = start;
    while (type != nullptr && depths.try_emplace(type, 0).second) {
      path.push_back(type);
      type = asDerivedType(type->derivedFrom);
    }
    std::size_t depth = type == nullptr ? 0 : depths[type] + 1;
    std::for_each(path.rbegin(), path.rend(), [&](const VornDerivedType* below) { depths[below] = depth++; });
  }
  std::ranges::stable_sort(types, {}, [&](const VornDerivedType* type) { return depths[type]; });
}

void moveUses(const VornDerivedType& from, VornDerivedType& to) {
  for (VornFeature* feature : from.featureCollection) {
    feature->addType(&to);
  }
  for (VornDerivedType* derived : from.derivedTypeCollection) {
    derived->addDerivedFromConcreteType(&to);
  }
}

}  // namespace

std::unique_ptr<VornBaseType> createBaseType(const VornString& logicalName) {
  auto type = std::make_unique<VornBaseType>();
  type->setName(logicalName);
  return type;
}

void factorizeTypes(VornModel& model) {
  std::vector<VornDerivedType*> types = collectDerivedTypes(model);
  sortByDepth(types);
  std::unordered_set<VornDerivedType*, IdentityHash, SameIdentity> firsts;
  for (VornDerivedType* type : types) {
    const auto [first, isFirst] = firsts.insert(type);
    if (!isFirst) {
      moveUses(*type, **first);
      if (type->generalPointer == nullptr) {
        delete type;
      }
    }
  }
}
