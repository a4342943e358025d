#include "host/base/pemo.h"

namespace {

class HostLiterals final : public VornTextLiteralCollection {
 public:
  HostLiterals() : VornTextLiteralCollection("VornHost") {}
};

// The letter after "VORN_" in a code stands for the severity.
VornMessageLiteral message(const char* code, const char* text, VornFault fault = VornFault::internal) {
  static HostLiterals literals;
  const char letter = code[sizeof "VORN_" - 1];
  const VornSeverity severity = letter == 'F'   ? VornSeverity::fatal
                                : letter == 'E' ? VornSeverity::error
                                : letter == 'W' ? VornSeverity::warning
                                                : VornSeverity::status;
  return {code, literals.newLiteral(code, text), severity, fault};
}

}  // namespace

// clang-format off
const VornMessageLiteral PEMO::UNSUPPORTED_BRIDGE_OPERATION = message("VORN_F0001", "The bridge '{0}' does not support the operation '{1}'");
const VornMessageLiteral PEMO::CANNOT_WRITE_FILE = message("VORN_F0002", "Cannot write '{0}': {1}", VornFault::output);
const VornMessageLiteral PEMO::UNKNOWN_OUTPUT_FORMAT = message("VORN_F0003", "Cannot tell the format of '{0}': the formats are {1}");
const VornMessageLiteral PEMO::INVALID_ENUMERATION_VALUE = message("VORN_F0004", "The enumeration '{0}' has no value {1}");
const VornMessageLiteral PEMO::CANNOT_LOAD_BRIDGE = message("VORN_F0005", "Cannot load the bridge '{0}': {1}", VornFault::bridge);
const VornMessageLiteral PEMO::MISSING_INPUT_FILE = message("VORN_E0006", "The option '{0}' does not name a file that can be read", VornFault::input);
const VornMessageLiteral PEMO::INCONSISTENT_MODEL = message("VORN_F0007", "The model does not hang together: {0}");
const VornMessageLiteral PEMO::TEXTS_NOT_UTF8 = message("VORN_W0008", "Texts that are not UTF-8 and are written as if they were ISO-8859-1: {0}");
const VornMessageLiteral PEMO::INVALID_BYTE_SEQUENCES = message("VORN_W0009", "Texts with bytes that are not valid in the encoding '{1}', replaced: {0}");
const VornMessageLiteral PEMO::NAMES_CHANGED = message("VORN_W0010", "Names that {1} cannot take as they are, changed (the script's end lists them): {0}");
const VornMessageLiteral PEMO::UNKNOWN_COLUMN_TYPES = message("VORN_W0011", "Columns whose type is not known, written as text: {0}");
const VornMessageLiteral PEMO::ELEMENTS_LEFT_OUT = message("VORN_W0012", "Tables, keys and indexes that {1} cannot take, left out (a comment in their place tells why): {0}");
const VornMessageLiteral PEMO::VIEWS_LEFT_OUT = message("VORN_W0013", "Views whose statement {1} may not take, kept as comments: {0}");
const VornMessageLiteral PEMO::ACTIONS_LEFT_OUT = message("VORN_W0014", "Referential actions that {1} cannot take, left out (a comment tells why): {0}");
const VornMessageLiteral PEMO::LOSSY_COLUMN_TYPES = message("VORN_W0015", "Columns whose type in {1} cannot hold all values (a comment tells which values): {0}");
const VornMessageLiteral PEMO::DIAGRAM_TOO_LARGE = message("VORN_W0021", "The model is larger than what is drawn of the format '{0}'; left out: {1}");
const VornMessageLiteral PEMO::OUT_OF_MEMORY = message("VORN_F0022", "There is not enough memory to import '{0}'");
const VornMessageLiteral PEMO::CANNOT_READ_FILE = message("VORN_F0023", "Cannot read '{0}': {1}", VornFault::input);
const VornMessageLiteral PEMO::NAMES_SHORTENED = message("VORN_W0026", "Names and texts that are too long to be repeated whole, shortened (a hash tells them apart): {0}");
const VornMessageLiteral PEMO::UNSOUND_INPUT = message("VORN_F0030", "{0} {1}", VornFault::input);
const VornMessageLiteral PEMO::ENCODING_DETECTED = message("VORN_S0031", "Texts are read as '{0}'. {1}");
const VornMessageLiteral PEMO::ENCODING_IS_UTF8 = message("VORN_W0032", "Texts are read as '{0}', but all {1} characters beyond ASCII are valid UTF-8. To read them so: --encoding utf-8");
const VornMessageLiteral PEMO::ENCODING_IS_NOT_UTF8 = message("VORN_W0033", "Texts are read as '{0}', but none of the {1} sequences beyond ASCII is valid in it. To have the encoding detected: --encoding auto");
const VornMessageLiteral PEMO::NEAREST_TARGET_SYSTEMS = message("VORN_S0034", "The nearest target systems that are supported: {0} (`vorn bridge systems` lists all)");
const VornMessageLiteral PEMO::FURTHER_SCHEMA = message("VORN_W0035", "The export has more than one schema record, so every later section is read one place late: tables and users may be missing");
const VornMessageLiteral PEMO::FURTHER_EXPORT = message("VORN_W0036", "The file goes on after the last section with what looks like another export, which is not imported");
// clang-format on
