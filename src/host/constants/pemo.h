// PEMO: the host's own messages.
#pragma once

#include "host/std/literals.h"

class PEMO {
 public:
  // {0} the bridge, {1} the operation.
  static const VornMessageLiteral UNSUPPORTED_BRIDGE_OPERATION;
  // {0} the file, {1} the system's reason.
  static const VornMessageLiteral CANNOT_WRITE_FILE;
  // {0} the file, {1} the formats there are.
  static const VornMessageLiteral UNKNOWN_OUTPUT_FORMAT;
  // {0} the enumeration, {1} the number.
  static const VornMessageLiteral INVALID_ENUMERATION_VALUE;
  // {0} the bridge's file, {1} the reason.
  static const VornMessageLiteral CANNOT_LOAD_BRIDGE;
  // {0} the option.
  static const VornMessageLiteral MISSING_INPUT_FILE;
  // {0} the problem found by the verifier.
  static const VornMessageLiteral INCONSISTENT_MODEL;
  // {0} how many texts.
  static const VornMessageLiteral TEXTS_NOT_UTF8;
  // {0} how many texts, {1} the encoding.
  static const VornMessageLiteral INVALID_BYTE_SEQUENCES;
  // {0} the file that was being read.
  static const VornMessageLiteral OUT_OF_MEMORY;
  // {0} the file, {1} the system's reason.
  static const VornMessageLiteral CANNOT_READ_FILE;
  // {0} how many, {1} the database system.
  static const VornMessageLiteral NAMES_CHANGED;
  static const VornMessageLiteral UNKNOWN_COLUMN_TYPES;
  static const VornMessageLiteral LOSSY_COLUMN_TYPES;
  static const VornMessageLiteral ELEMENTS_LEFT_OUT;
  static const VornMessageLiteral VIEWS_LEFT_OUT;
  static const VornMessageLiteral ACTIONS_LEFT_OUT;
  // {0} the format, {1} what was left out.
  static const VornMessageLiteral DIAGRAM_TOO_LARGE;
};
