// The conversion of an export's data types into the host's, by converters that are made once for each target
// system and kept as long as the bridge is loaded.
#pragma once

#include "bridge/target_systems/target_systems.h"
#include "host/base/containers.h"

class VornDataTypeConverter;
class VornDerivedType;
class VornLog;

namespace silrdm {

// The converters made so far, each with the catalogue entry it was made for; owns them.
class SILDataTypeConverters : public VornVector {
 public:
  SILDataTypeConverters() = default;
  ~SILDataTypeConverters() override;

  // The converter for the entry, made on first use. It writes to `log` until it is asked for again: a log is
  // no longer used once its run is over.
  VornDataTypeConverter& getConverter(VornLog& log, const targetDatabaseInfo& target, const VornString& tool);
};

extern SILDataTypeConverters converterRegistry;

// The host's name of a type that a domain of the export has, as its target system writes it, or for the
// default one where none was detected. What the system does not know is "undefined", with a warning. The text
// stays until the next call.
const VornString& convertDataType(const VornString& nativeTypeName, const VornDerivedType& domain);

}  // namespace silrdm
