#include <map>
#include <memory>
#include <tuple>

#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "bridge/passes/typing.h"
#include "host/datatypes/logical_types.h"
#include "host/metamodel/feature.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

bool hasSizesOfItsOwn(const SILRDMAttribute& column, const VornDerivedType& domain) {
  return (column.length != 0 && column.length != domain.getLength()) ||
         (column.scale != 0 && column.scale != domain.getScale());
}

// Creates a type with the column's length and scale, even if one is 0. Its name is the domain's name with the
// sizes appended.
VornDerivedType& makeOwnType(Import& import, const SILRDMAttribute& column, VornDerivedType& domain) {
  auto type = std::make_unique<VornDerivedType>(domain);
  applySizeSuffix(*type, type->getDataType(), column.length, column.scale);
  type->length = column.length;
  type->scale = column.scale;
  type->addDerivedFromConcreteType(&domain);
  return import.storeModel.addType(std::move(type));
}

// The types found or made so far.
struct Types {
  // By domain, length and scale: columns with equal ones share a type.
  std::map<std::tuple<const VornDerivedType*, std::int32_t, std::int32_t>, VornDerivedType*> own;
  VornBaseType* undefined = nullptr;  // kept here because another type may have the same name
};

VornDerivedType& ownTypeFor(Import& import, const SILRDMAttribute& column, VornDerivedType& domain,
                            Types& made) {
  VornDerivedType*& type = made.own[{&domain, column.length, column.scale}];
  if (type == nullptr) {
    type = &makeOwnType(import, column, domain);
  }
  return *type;
}

VornType& typeFor(Import& import, const VornAttribute& column, Types& made) {
  const auto& element = *elementOf<SILRDMAttribute>(column);
  VornDerivedType* domain = import.domainRegistry.findFirst(element.domainId);
  if (domain == nullptr) {
    import.report(Irregularity::columnWithoutDomain, column, element.domainId);
    if (made.undefined == nullptr) {
      made.undefined = &baseTypeFor(import, kUndefinedType);
    }
    return *made.undefined;
  }
  return hasSizesOfItsOwn(element, *domain) ? ownTypeFor(import, element, *domain, made) : *domain;
}

}  // namespace

void typeAttributes(Import& import) {
  Types made;
  for (VornAttribute* column : import.attributeRegistry) {
    column->addType(&typeFor(import, *column, made));
  }
}

}  // namespace silrdm
