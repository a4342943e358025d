#include "bridge/target_systems/type_conversion.h"

#include "host/datatypes/data_type_constants.h"
#include "host/datatypes/logical_types.h"
#include "host/metamodel/type.h"

namespace silrdm {

const VornString& TypeConversion::convertDataType(const VornString& nativeTypeName,
                                                  const targetDatabaseInfo* target,
                                                  const VornDerivedType& domain) {
  if (target == nullptr) {
    target = &defaultTargetSystem();
  }
  if (!converter_ || target_ != target) {
    const bool isLogical = target->systemName.equals("<Logical>", true);
    converter_.emplace(
        log_, *target,
        isLogical ? VornDataTypeConstants::TOOL_SILVERRUN_RDM : VornDataTypeConstants::TOOL_VORNGENERIC);
    target_ = target;
  }
  const VornString& hostType = converter_->getImportTypeName(nativeTypeName);
  if (isUndefined(hostType)) {
    reporter_.report(Irregularity::unknownDataType, domain, nativeTypeName,
                     {nativeTypeName, target->systemName});
  }
  return hostType;
}

}  // namespace silrdm
