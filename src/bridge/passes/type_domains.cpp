#include "bridge/elements/registries.h"
#include "bridge/passes/passes.h"
#include "bridge/passes/typing.h"
#include "bridge/reporting/reports.h"
#include "bridge/target_systems/type_conversion.h"
#include "host/datatypes/logical_types.h"

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
