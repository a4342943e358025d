#include "assembly/passes.h"
#include "assembly/typing.h"
#include "bridge/irregularities.h"
#include "datatypes/type_conversion.h"
#include "elements/registries.h"
#include "host/datatypelib/logical_types.h"

namespace silrdm {

namespace {

void setDataType(VornDerivedType& domain) {
  const VornString& dataTypeId = elementOf<SILRDMDomain>(domain)->dataTypeId;
  const SILRDMDataType* dataType = dataTypeRegistry.findFirst(dataTypeId);
  if (dataType == nullptr) {
    tell(Irregularity::domainWithoutDataType, domain, dataTypeId);
    domain.dataType = kUndefinedType;
    return;
  }
  domain.dataType = convertDataType(dataType->nativeTypeName, domain);
  if (domain.getLength() == 0) {
    domain.length = parseInteger(dataType->lengthText.view()).value_or(0);
  }
}

}  // namespace

void typeDomains() {
  for (VornDerivedType* domain : domainRegistry) {
    setDataType(*domain);
    if (!isUndefined(domain->getDataType())) {
      applySizeSuffix(*domain, domain->getDataType(), domain->getLength(), domain->getScale());
    }
    domain->addDerivedFromConcreteType(&baseTypeFor(domain->getDataType()));
  }
}

}  // namespace silrdm
