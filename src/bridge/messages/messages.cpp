#include "bridge/messages/messages.h"

#include "bridge/messages/texts.h"

namespace silrdm {

namespace {

// A code is the family, a letter for the severity and the message's number: "KVB_SRRDM_F0002".
VornMessageLiteral message(const char* code, const char* literal) {
  const char letter = code[sizeof "KVB_SRRDM_" - 1];
  const VornSeverity severity = letter == 'F'   ? VornSeverity::fatal
                                : letter == 'W' ? VornSeverity::warning
                                                : VornSeverity::status;
  return {code, getLiteral(literal), severity, VornFault::input};
}

}  // namespace

// clang-format off
const VornMessageLiteral KVB_SRRDM::SILRDM_I_UNABLE_TO_OPEN_INPUT_FILE = message("KVB_SRRDM_F0002", "silrdm_i_unable_to_open_input_file");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT = message("KVB_SRRDM_F0003", "silrdm_i_bad_file_format");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_LINE_TOO_LONG = message("KVB_SRRDM_W0004", "silrdm_i_line_too_long");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_PACKAGE = message("KVB_SRRDM_S0005", "silrdm_i_creating_package");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_DOMAINS = message("KVB_SRRDM_S0006", "silrdm_i_creating_domains");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_COLUMNS = message("KVB_SRRDM_S0007", "silrdm_i_creating_columns");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_TABLES = message("KVB_SRRDM_S0008", "silrdm_i_creating_tables");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_RELATIONSHIPS = message("KVB_SRRDM_S0009", "silrdm_i_creating_relationships");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_COMMON_ITEMS = message("KVB_SRRDM_S0010", "silrdm_i_creating_common_items");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_SPECIALIZATIONS = message("KVB_SRRDM_S0011", "silrdm_i_creating_specializations");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_KEYS = message("KVB_SRRDM_S0012", "silrdm_i_creating_keys");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP = message("KVB_SRRDM_W0013", "silrdm_i_cannot_connect_relationship");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_GENERALIZATION = message("KVB_SRRDM_W0014", "silrdm_i_cannot_connect_generalization");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_ATTRIBUTE = message("KVB_SRRDM_W0015", "silrdm_i_cannot_connect_attribute");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CANNOT_CONNECT_KEY = message("KVB_SRRDM_W0016", "silrdm_i_cannot_connect_key");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_UNKNOWN_DATATYPE = message("KVB_SRRDM_W0017", "silrdm_i_unknown_datatype");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_GENERATE_KEYS = message("KVB_SRRDM_S0018", "silrdm_i_generate_keys");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_UNKNOWN_TARGET_SYSTEM = message("KVB_SRRDM_W0019", "silrdm_i_unknown_target_system");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_TARGET_SYSTEM_DETECTED = message("KVB_SRRDM_S0020", "silrdm_i_target_system_detected");
const VornMessageLiteral KVB_SRRDM::SILRDM_I_CREATING_USERS = message("KVB_SRRDM_S0021", "silrdm_i_creating_users");
// clang-format on

}  // namespace silrdm
