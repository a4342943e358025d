#include "assembly/passes.h"
#include "assembly/typing.h"
#include "elements/registries.h"
#include "host/datatypelib/logical_types.h"

namespace silrdm {

namespace {

void takeOverFrom(const VornDerivedType& domain, VornDerivedType& item) {
  item.dataType = domain.getDataType();
  if (item.getLength() == 0) {
    item.length = domain.getLength();
  }
  if (item.getScale() == 0) {
    item.scale = domain.getScale();
  }
}

}  // namespace

void typeCommonItems() {
  for (VornDerivedType* item : commonItemRegistry) {
    const VornDerivedType* domain = domainRegistry.findFirst(elementOf<SILRDMUserDomain>(*item)->domainId);
    if (domain != nullptr) {
      takeOverFrom(*domain, *item);
    } else {
      item->dataType = kUndefinedType;
    }
    item->addDerivedFromConcreteType(&baseTypeFor(item->getDataType()));
  }
}

}  // namespace silrdm
