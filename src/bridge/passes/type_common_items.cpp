#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "bridge/passes/typing.h"
#include "host/datatypes/logical_types.h"

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

void typeCommonItems(Import& import) {
  for (VornDerivedType* item : import.commonItemRegistry) {
    const VornString& domainId = elementOf<SILRDMUserDomain>(*item)->domainId;
    const VornDerivedType* domain = import.domainRegistry.findFirst(domainId);
    if (domain != nullptr) {
      takeOverFrom(*domain, *item);
    } else {
      import.report(Irregularity::commonItemWithoutDomain, *item, domainId);
      item->dataType = kUndefinedType;
    }
    item->addDerivedFromConcreteType(&baseTypeFor(import, item->getDataType()));
  }
}

}  // namespace silrdm
