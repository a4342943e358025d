// BLIB: literals that the bridges share.
#pragma once

#include "host/plugin/option_literals.h"

class BLIB {
 public:
  // The choices of an option "Encoding": every encoding of the transcoder.
  static const VornBridgeOptionEnumerationLiteral BP_ENCODING_ENUM;
  static const VornBridgeEnumValueLiteral& BP_ENCODING_ENUM_WESTERN_EUROPEAN__WINDOWS_1252_;
};
