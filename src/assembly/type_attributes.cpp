#include <memory>

#include "assembly/passes.h"
#include "assembly/typing.h"
#include "bridge/irregularities.h"
#include "elements/registries.h"
#include "host/datatypelib/logical_types.h"
#include "host/metamodel/feature.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

bool hasSizesOfItsOwn(const SILRDMAttribute& column, const VornDerivedType& domain) {
  return (column.length != 0 && column.length != domain.getLength()) ||
         (column.scale != 0 && column.scale != domain.getScale());
}

// A type with the column's sizes. Both are the column's, also one that is 0; the name has the domain's before
// them.
VornDerivedType& makeOwnType(const SILRDMAttribute& column, VornDerivedType& domain) {
  auto type = std::make_unique<VornDerivedType>(domain);
  applySizeSuffix(*type, type->getDataType(), column.length, column.scale);
  type->length = column.length;
  type->scale = column.scale;
  type->addDerivedFromConcreteType(&domain);
  type->addModel(storeModel);
  return *type.release();
}

VornType& typeFor(const VornAttribute& column) {
  const auto& element = *elementOf<SILRDMAttribute>(column);
  VornDerivedType* domain = domainRegistry.findFirst(element.domainId);
  if (domain == nullptr) {
    tell(Irregularity::columnWithoutDomain, column, element.domainId);
    return baseTypeFor(kUndefinedType);
  }
  return hasSizesOfItsOwn(element, *domain) ? makeOwnType(element, *domain) : *domain;
}

}  // namespace

void typeAttributes() {
  for (VornAttribute* column : attributeRegistry) {
    column->addType(&typeFor(*column));
  }
}

}  // namespace silrdm
