// TAVIK: the specification literals of the bridges that the host knows.
#pragma once

#include "host/plugin/bridge_specification.h"

class TAVIK {
 public:
  static const VornBridgeSpecificationLiteral BRIDGE_SPEC_SILVERRUNRDM262_IMPORT;
};
