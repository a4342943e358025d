#include "host/base/pemo.h"

namespace {

class HostLiterals final : public VornTextLiteralCollection {
 public:
  HostLiterals() : VornTextLiteralCollection("VornHost") {}
};

const VornTextLiteral& text(const char* name, const char* words) {
  static HostLiterals literals;
  return literals.newLiteral(name, words);
}

}  // namespace

const VornMessageLiteral PEMO::UNSUPPORTED_BRIDGE_OPERATION(
    "VORN_F0001",
    text("unsupported_bridge_operation", "The bridge '{0}' does not support the operation '{1}'"),
    VornSeverity::fatal);
const VornMessageLiteral PEMO::CANNOT_WRITE_FILE("VORN_F0002",
                                                 text("cannot_write_file", "Cannot write '{0}': {1}"),
                                                 VornSeverity::fatal, VornFault::output);
const VornMessageLiteral PEMO::UNKNOWN_OUTPUT_FORMAT(
    "VORN_F0003", text("unknown_output_format", "Cannot tell the format of '{0}': the formats are {1}"),
    VornSeverity::fatal);
const VornMessageLiteral PEMO::INVALID_ENUMERATION_VALUE("VORN_F0004",
                                                         text("invalid_enumeration_value",
                                                              "The enumeration '{0}' has no value {1}"),
                                                         VornSeverity::fatal);
const VornMessageLiteral PEMO::CANNOT_LOAD_BRIDGE("VORN_F0005",
                                                  text("cannot_load_bridge",
                                                       "Cannot load the bridge '{0}': {1}"),
                                                  VornSeverity::fatal, VornFault::bridge);
const VornMessageLiteral PEMO::MISSING_INPUT_FILE(
    "VORN_E0006", text("missing_input_file", "The option '{0}' does not name a file that can be read"),
    VornSeverity::error, VornFault::input);
const VornMessageLiteral PEMO::INCONSISTENT_MODEL(
    "VORN_F0007", text("inconsistent_model", "The model does not hang together: {0}"), VornSeverity::fatal);
const VornMessageLiteral PEMO::TEXTS_NOT_UTF8(
    "VORN_W0008",
    text("texts_not_utf8", "Texts that are not UTF-8 and are written as if they were ISO-8859-1: {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::INVALID_BYTE_SEQUENCES(
    "VORN_W0009",
    text("invalid_byte_sequences",
         "Texts with bytes that are not valid in the encoding '{1}', replaced: {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::OUT_OF_MEMORY(
    "VORN_F0022", text("out_of_memory", "There is not enough memory to import '{0}'"), VornSeverity::fatal);
const VornMessageLiteral PEMO::CANNOT_READ_FILE("VORN_F0023",
                                                text("cannot_read_file", "Cannot read '{0}': {1}"),
                                                VornSeverity::fatal, VornFault::input);
const VornMessageLiteral PEMO::NAMES_CHANGED(
    "VORN_W0010",
    text("names_changed",
         "Names that {1} cannot take as they are, changed (the script's end lists them): {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::UNKNOWN_COLUMN_TYPES(
    "VORN_W0011", text("unknown_column_types", "Columns whose type is not known, written as text: {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::LOSSY_COLUMN_TYPES(
    "VORN_W0015",
    text("lossy_column_types",
         "Columns whose type in {1} cannot hold all values (a comment tells which values): {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::ELEMENTS_LEFT_OUT(
    "VORN_W0012",
    text("elements_left_out",
         "Tables, keys and indexes that {1} cannot take, left out (a comment in their place tells why): {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::VIEWS_LEFT_OUT(
    "VORN_W0013", text("views_left_out", "Views whose statement {1} may not take, kept as comments: {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::ACTIONS_LEFT_OUT(
    "VORN_W0014",
    text("actions_left_out", "Referential actions that {1} cannot take, left out (a comment tells why): {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::DIAGRAM_TOO_LARGE(
    "VORN_W0021",
    text("diagram_too_large", "The model is larger than what is drawn of the format '{0}'; left out: {1}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::NAMES_SHORTENED(
    "VORN_W0026",
    text("names_shortened",
         "Names and texts that are too long to be repeated whole, shortened (a hash tells them apart): {0}"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::UNSOUND_INPUT("VORN_F0030", text("unsound_input", "{0} {1}"),
                                             VornSeverity::fatal, VornFault::input);
const VornMessageLiteral PEMO::ENCODING_DETECTED("VORN_S0031",
                                                 text("encoding_detected", "Texts are read as '{0}'. {1}"),
                                                 VornSeverity::status);
const VornMessageLiteral PEMO::ENCODING_IS_UTF8(
    "VORN_W0032",
    text("encoding_is_utf8",
         "Texts are read as '{0}', but all {1} characters beyond ASCII are valid UTF-8. To read them so: "
         "--encoding utf-8"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::ENCODING_IS_NOT_UTF8(
    "VORN_W0033",
    text("encoding_is_not_utf8",
         "Texts are read as '{0}', but none of the {1} sequences beyond ASCII is valid in it. To have the "
         "encoding detected: --encoding auto"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::NEAREST_TARGET_SYSTEMS(
    "VORN_S0034",
    text("nearest_target_systems",
         "The nearest target systems that are supported: {0} (`vorn bridge systems` lists all)"),
    VornSeverity::status);
const VornMessageLiteral PEMO::FURTHER_SCHEMA(
    "VORN_W0035",
    text("further_schema",
         "The export has more than one schema record, so every later section is read one place late: tables "
         "and users may be missing"),
    VornSeverity::warning);
const VornMessageLiteral PEMO::FURTHER_EXPORT(
    "VORN_W0036",
    text(
        "further_export",
        "The file goes on after the last section with what looks like another export, which is not imported"),
    VornSeverity::warning);
