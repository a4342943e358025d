#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "bridge/passes/typing.h"
#include "host/datatypes/logical_types.h"

namespace silrdm {

namespace {

void setDataType(Import& import, VornDerivedType& domain) {
  const VornString& dataTypeId = elementOf<SILRDMDomain>(domain)->dataTypeId;
  const SILRDMDataType* dataType = import.dataTypeRegistry.findFirst(dataTypeId);
  if (dataType == nullptr) {
    import.report(Irregularity::domainWithoutDataType, domain, dataTypeId);
    domain.dataType = kUndefinedType;
    return;
  }
  domain.dataType =
      import.typeConversion.convertDataType(dataType->nativeTypeName, import.detectedTargetSystem, domain);
  if (domain.getLength() == 0) {
    domain.length = parseInteger(dataType->lengthText.view()).value_or(0);
  }
}

}  // namespace

void typeDomains(Import& import) {
  for (VornDerivedType* domain : import.domainRegistry) {
    setDataType(import, *domain);
    if (!isUndefined(domain->getDataType())) {
      applySizeSuffix(*domain, domain->getDataType(), domain->getLength(), domain->getScale());
    }
    domain->addDerivedFromConcreteType(&baseTypeFor(import, domain->getDataType()));
  }
}

}  // namespace silrdm
