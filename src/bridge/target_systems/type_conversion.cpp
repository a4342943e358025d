#include "bridge/target_systems/type_conversion.h"

#include <memory>

#include "bridge/reporting/reports.h"
#include "host/datatypes/data_type_constants.h"
#include "host/datatypes/data_type_converter.h"
#include "host/datatypes/logical_types.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

struct TargetConverter {
  TargetConverter(VornLog& log, const targetDatabaseInfo& system, const VornString& tool)
      : target(&system), converter(log, system, tool) {}

  const targetDatabaseInfo* target;
  VornDataTypeConverter converter;
};

}  // namespace

SILDataTypeConverters converterRegistry;

SILDataTypeConverters::~SILDataTypeConverters() {
  for (std::size_t i = 0; i < getCount(); ++i) {
    delete static_cast<TargetConverter*>((*this)[i]);
  }
}

VornDataTypeConverter& SILDataTypeConverters::getConverter(VornLog& log, const targetDatabaseInfo& target,
                                                           const VornString& tool) {
  for (std::size_t i = 0; i < getCount(); ++i) {
    auto* made = static_cast<TargetConverter*>((*this)[i]);
    if (made->target == &target) {
      made->converter.setLog(log);
      return made->converter;
    }
  }
  auto made = std::make_unique<TargetConverter>(log, target, tool);
  add(made.get());
  return made.release()->converter;
}

const VornString& convertDataType(const VornString& nativeTypeName, const VornDerivedType& domain) {
  const targetDatabaseInfo& target =
      detectedTargetSystem != nullptr ? *detectedTargetSystem : defaultTargetSystem();
  const bool isLogical = target.systemName.equals("<Logical>", true);
  const VornString& hostType = converterRegistry
                                   .getConverter(*importLog, target,
                                                 isLogical ? VornDataTypeConstants::TOOL_SILVERRUN_RDM
                                                           : VornDataTypeConstants::TOOL_VORNGENERIC)
                                   .getImportTypeName(nativeTypeName);
  if (isUndefined(hostType)) {
    tell(Irregularity::unknownDataType, domain, nativeTypeName, {nativeTypeName, target.systemName});
  }
  return hostType;
}

}  // namespace silrdm
