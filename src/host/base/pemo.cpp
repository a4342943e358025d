#include "host/base/pemo.h"

namespace {

class HostLiterals final : public VornTextLiteralCollection {
 public:
  HostLiterals() : VornTextLiteralCollection("VornHost") {}
};

// The letter after "VORN_" in a code is the severity.
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
const VornMessageLiteral PEMO::UNKNOWN_OUTPUT_FORMAT = message("VORN_F0003", "Unknown output format for '{0}': the formats are {1}");
const VornMessageLiteral PEMO::INVALID_ENUMERATION_VALUE = message("VORN_F0004", "The enumeration '{0}' has no value {1}");
const VornMessageLiteral PEMO::CANNOT_LOAD_BRIDGE = message("VORN_F0005", "Cannot load the bridge '{0}': {1}", VornFault::bridge);
const VornMessageLiteral PEMO::MISSING_INPUT_FILE = message("VORN_E0006", "The option '{0}' does not name a readable file", VornFault::input);
const VornMessageLiteral PEMO::INCONSISTENT_MODEL = message("VORN_F0007", "The model is inconsistent: {0}");
const VornMessageLiteral PEMO::TEXTS_NOT_UTF8 = message("VORN_W0008", "Texts that are not UTF-8, written as ISO-8859-1: {0}");
const VornMessageLiteral PEMO::INVALID_BYTE_SEQUENCES = message("VORN_W0009", "Texts with bytes that are not valid in '{1}', replaced by U+FFFD: {0}");
const VornMessageLiteral PEMO::NAMES_CHANGED = message("VORN_W0010", "Names changed because {1} does not accept them (listed at the end of the script): {0}");
const VornMessageLiteral PEMO::UNKNOWN_COLUMN_TYPES = message("VORN_W0011", "Columns of unknown type, written as text: {0}");
const VornMessageLiteral PEMO::ELEMENTS_LEFT_OUT = message("VORN_W0012", "Tables, keys and indexes left out because {1} does not accept them (comments say why): {0}");
const VornMessageLiteral PEMO::VIEWS_LEFT_OUT = message("VORN_W0013", "Views kept as comments because {1} may not accept their statements: {0}");
const VornMessageLiteral PEMO::ACTIONS_LEFT_OUT = message("VORN_W0014", "Referential actions left out because {1} does not accept them (comments say why): {0}");
const VornMessageLiteral PEMO::LOSSY_COLUMN_TYPES = message("VORN_W0015", "Columns whose type in {1} cannot hold all values (comments say which): {0}");
const VornMessageLiteral PEMO::DIAGRAM_TOO_LARGE = message("VORN_W0021", "The model is too large for one diagram in the format '{0}'; left out: {1}");
const VornMessageLiteral PEMO::OUT_OF_MEMORY = message("VORN_F0022", "Not enough memory to import '{0}'");
const VornMessageLiteral PEMO::CANNOT_READ_FILE = message("VORN_F0023", "Cannot read '{0}': {1}", VornFault::input);
const VornMessageLiteral PEMO::NAMES_SHORTENED = message("VORN_W0026", "Names and texts shortened because they are too long to repeat in full (a hash keeps them distinct): {0}");
const VornMessageLiteral PEMO::UNSOUND_INPUT = message("VORN_F0030", "{0} {1}", VornFault::input);
const VornMessageLiteral PEMO::ENCODING_DETECTED = message("VORN_S0031", "Texts are read as '{0}'. {1}");
const VornMessageLiteral PEMO::ENCODING_IS_UTF8 = message("VORN_W0032", "Texts are read as '{0}', but all {1} non-ASCII characters are valid UTF-8. To read them as UTF-8: --encoding utf-8");
const VornMessageLiteral PEMO::ENCODING_IS_NOT_UTF8 = message("VORN_W0033", "Texts are read as '{0}', but none of the {1} non-ASCII sequences is valid in it. To detect the encoding: --encoding auto");
const VornMessageLiteral PEMO::NEAREST_TARGET_SYSTEMS = message("VORN_S0034", "Nearest supported target systems: {0} (`vorn bridge systems` lists all)");
const VornMessageLiteral PEMO::FURTHER_SCHEMA = message("VORN_W0035", "The export has more than one schema record, so every later section is read one position late: tables and users may be missing");
const VornMessageLiteral PEMO::FURTHER_EXPORT = message("VORN_W0036", "After the last section, the file continues with what looks like another export; it is not imported");
// clang-format on
