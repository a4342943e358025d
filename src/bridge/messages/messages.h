// KVB_SRRDM: the bridge's messages and options. The texts are those of the text literals of the same names in
// lower case.
#pragma once

#include "host/base/literals.h"
#include "host/plugin/option_literals.h"

namespace silrdm {

class KVB_SRRDM {
 public:
  // The options.
  static const VornBridgeOptionLiteral BP_FILE;
  static const VornBridgeOptionLiteral BP_ROLE_NAME_LOCATION;
  static const VornBridgeOptionLiteral BP_OPEN_MODE;
  static const VornBridgeOptionLiteral BP_ENCODING;
  static const VornBridgeOptionLiteral BP_VERSION;

  // Their choices; the encodings are the host's.
  static const VornBridgeOptionEnumerationLiteral BP_ROLE_NAME_LOCATION_ENUM;
  static const VornBridgeEnumValueLiteral BP_ROLE_NAME_LOCATION_ENUM_LINK_ORIGIN__ER_MODELING_STYLE_;
  static const VornBridgeEnumValueLiteral BP_ROLE_NAME_LOCATION_ENUM_LINK_DESTINATION__UML_MODELING_STYLE_;
  static const VornBridgeOptionEnumerationLiteral BP_OPEN_MODE_ENUM;
  static const VornBridgeEnumValueLiteral BP_OPEN_MODE_ENUM_BINARY;
  static const VornBridgeEnumValueLiteral BP_OPEN_MODE_ENUM_TEXT;
  static const VornBridgeOptionEnumerationLiteral BP_VERSION_ENUM;
  static const VornBridgeEnumValueLiteral BP_VERSION_ENUM_2_8_4_2_8_5;
  static const VornBridgeEnumValueLiteral BP_VERSION_ENUM_2_7_2;
  static const VornBridgeEnumValueLiteral BP_VERSION_ENUM_2_6_2;
  static const VornBridgeEnumValueLiteral BP_VERSION_ENUM_2_4_4;

  // The two messages that end an import.
  static const VornMessageLiteral SILRDM_I_UNABLE_TO_OPEN_INPUT_FILE;  // {0} the path
  static const VornMessageLiteral SILRDM_I_BAD_FILE_FORMAT;
  // Warnings.
  static const VornMessageLiteral SILRDM_I_LINE_TOO_LONG;
  static const VornMessageLiteral SILRDM_I_CANNOT_CONNECT_RELATIONSHIP;
  static const VornMessageLiteral SILRDM_I_CANNOT_CONNECT_GENERALIZATION;
  static const VornMessageLiteral SILRDM_I_CANNOT_CONNECT_ATTRIBUTE;
  static const VornMessageLiteral SILRDM_I_CANNOT_CONNECT_KEY;
  static const VornMessageLiteral SILRDM_I_UNKNOWN_DATATYPE;       // {0} the type, {1} the system
  static const VornMessageLiteral SILRDM_I_UNKNOWN_TARGET_SYSTEM;  // {0} the system, {1} its version
  // Progress.
  static const VornMessageLiteral SILRDM_I_CREATING_PACKAGE;
  static const VornMessageLiteral SILRDM_I_CREATING_DOMAINS;
  static const VornMessageLiteral SILRDM_I_CREATING_COLUMNS;
  static const VornMessageLiteral SILRDM_I_CREATING_TABLES;
  static const VornMessageLiteral SILRDM_I_CREATING_RELATIONSHIPS;
  static const VornMessageLiteral SILRDM_I_CREATING_COMMON_ITEMS;
  static const VornMessageLiteral SILRDM_I_CREATING_SPECIALIZATIONS;
  static const VornMessageLiteral SILRDM_I_CREATING_KEYS;
  static const VornMessageLiteral SILRDM_I_GENERATE_KEYS;
  static const VornMessageLiteral SILRDM_I_TARGET_SYSTEM_DETECTED;  // {0} the system
  static const VornMessageLiteral SILRDM_I_CREATING_USERS;
};

}  // namespace silrdm
