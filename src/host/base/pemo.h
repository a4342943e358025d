// PEMO: the host's own messages.
#pragma once

#include "host/base/literals.h"

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
  // {0} what is wrong with the input and {1} what to do, a sentence each.
  static const VornMessageLiteral UNSOUND_INPUT;
  // {0} the encoding, {1} why, a sentence.
  static const VornMessageLiteral ENCODING_DETECTED;
  // {0} the encoding, {1} how many characters.
  static const VornMessageLiteral ENCODING_IS_UTF8;
  // {0} the encoding, {1} how many sequences.
  static const VornMessageLiteral ENCODING_IS_NOT_UTF8;
  // {0} the systems, as a list.
  static const VornMessageLiteral NEAREST_TARGET_SYSTEMS;
  // {0} the format, {1} what was left out.
  static const VornMessageLiteral DIAGRAM_TOO_LARGE;
  // An export holds more than the import takes.
  static const VornMessageLiteral FURTHER_SCHEMA;
  static const VornMessageLiteral FURTHER_EXPORT;
  static const VornMessageLiteral NAMES_SHORTENED;
};
