// TypeConversion: the conversion of an export's data types into the host's.
#pragma once

#include <optional>

#include "bridge/reporting/reporter.h"
#include "bridge/target_systems/target_systems.h"
#include "host/datatypes/data_type_converter.h"

class VornDerivedType;
class VornLog;

namespace silrdm {

class TypeConversion {
 public:
  // Both must outlive the conversion.
  TypeConversion(VornLog& log, Reporter& reporter) : log_(log), reporter_(reporter) {}

  // Returns the host type for `nativeTypeName` of `domain` in `target`, or in the default system if `target`
  // is null; valid until the next call. Unknown types are "undefined" and logged as a warning.
  const VornString& convertDataType(const VornString& nativeTypeName, const targetDatabaseInfo* target,
                                    const VornDerivedType& domain);

 private:
  VornLog& log_;
  Reporter& reporter_;
  std::optional<VornDataTypeConverter> converter_;  // made when first needed
  const targetDatabaseInfo* target_ = nullptr;      // that the converter is for
};

}  // namespace silrdm
