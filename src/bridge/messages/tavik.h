// TAVIK: the specification of the bridge, under the name that the host gives to such literals.
#pragma once

#include "host/plugin/bridge_specification.h"

class TAVIK {
 public:
  static const VornBridgeSpecificationLiteral BRIDGE_SPEC_SILVERRUNRDM262_IMPORT;
};
