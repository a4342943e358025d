#include "assembly/passes.h"
#include "assembly/typing.h"
#include "bridge/irregularities.h"
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
    const VornString& domainId = elementOf<SILRDMUserDomain>(*item)->domainId;
    const VornDerivedType* domain = domainRegistry.findFirst(domainId);
    if (domain != nullptr) {
      takeOverFrom(*domain, *item);
    } else {
      tell(Irregularity::commonItemWithoutDomain, *item, domainId);
      item->dataType = kUndefinedType;
    }
    item->addDerivedFromConcreteType(&baseTypeFor(item->getDataType()));
  }
}

}  // namespace silrdm
