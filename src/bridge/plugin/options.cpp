// The bridge's options as data: their choices, names, texts and defaults, and the list made of them.
#include <iterator>

#include "bridge/messages/messages.h"
#include "bridge/messages/texts.h"
#include "bridge/plugin/plugin.h"
#include "host/services/blib.h"

namespace silrdm {

using Choices = VornBridgeOptionEnumerationLiteral;
using Kind = VornOption::Kind;

const VornBridgeEnumValueLiteral KVB_SRRDM::BP_ROLE_NAME_LOCATION_ENUM_LINK_ORIGIN__ER_MODELING_STYLE_(
    "Link Origin (ER Modeling Style)",
    getLiteral("bp_role_name_location_enum_link_origin__er_modeling_style_"));
const VornBridgeEnumValueLiteral KVB_SRRDM::BP_ROLE_NAME_LOCATION_ENUM_LINK_DESTINATION__UML_MODELING_STYLE_(
    "Link Destination (UML Modeling Style)",
    getLiteral("bp_role_name_location_enum_link_destination__uml_modeling_style_"));
const Choices KVB_SRRDM::BP_ROLE_NAME_LOCATION_ENUM(
    {&BP_ROLE_NAME_LOCATION_ENUM_LINK_ORIGIN__ER_MODELING_STYLE_,
     &BP_ROLE_NAME_LOCATION_ENUM_LINK_DESTINATION__UML_MODELING_STYLE_});

const VornBridgeEnumValueLiteral KVB_SRRDM::BP_OPEN_MODE_ENUM_BINARY("Binary",
                                                                     getLiteral("bp_open_mode_enum_binary"));
const VornBridgeEnumValueLiteral KVB_SRRDM::BP_OPEN_MODE_ENUM_TEXT("Text",
                                                                   getLiteral("bp_open_mode_enum_text"));
const Choices KVB_SRRDM::BP_OPEN_MODE_ENUM({&BP_OPEN_MODE_ENUM_BINARY, &BP_OPEN_MODE_ENUM_TEXT});

const VornBridgeEnumValueLiteral KVB_SRRDM::BP_VERSION_ENUM_2_8_4_2_8_5(
    "2.8.4/2.8.5", getLiteral("bp_version_enum_2_8_4_2_8_5"));
const VornBridgeEnumValueLiteral KVB_SRRDM::BP_VERSION_ENUM_2_7_2("2.7.2",
                                                                  getLiteral("bp_version_enum_2_7_2"));
const VornBridgeEnumValueLiteral KVB_SRRDM::BP_VERSION_ENUM_2_6_2("2.6.2",
                                                                  getLiteral("bp_version_enum_2_6_2"));
const VornBridgeEnumValueLiteral KVB_SRRDM::BP_VERSION_ENUM_2_4_4("2.4.4",
                                                                  getLiteral("bp_version_enum_2_4_4"));
const Choices KVB_SRRDM::BP_VERSION_ENUM({&BP_VERSION_ENUM_2_8_4_2_8_5, &BP_VERSION_ENUM_2_7_2,
                                          &BP_VERSION_ENUM_2_6_2, &BP_VERSION_ENUM_2_4_4});

const VornBridgeOptionLiteral KVB_SRRDM::BP_FILE("File", Kind::file, getLiteral("bp_file_name"),
                                                 getLiteral("bp_file_desc"), getLiteral("bp_file_default"));
const VornBridgeOptionLiteral KVB_SRRDM::BP_ROLE_NAME_LOCATION(
    "Role Name Location", Kind::choice, getLiteral("bp_role_name_location_name"),
    getLiteral("bp_role_name_location_desc"), BP_ROLE_NAME_LOCATION_ENUM,
    BP_ROLE_NAME_LOCATION_ENUM_LINK_ORIGIN__ER_MODELING_STYLE_);
const VornBridgeOptionLiteral KVB_SRRDM::BP_OPEN_MODE("Open Mode", Kind::choice,
                                                      getLiteral("bp_open_mode_name"),
                                                      getLiteral("bp_open_mode_desc"), BP_OPEN_MODE_ENUM,
                                                      BP_OPEN_MODE_ENUM_BINARY);
const VornBridgeOptionLiteral KVB_SRRDM::BP_ENCODING("Encoding", Kind::choice, getLiteral("bp_encoding_name"),
                                                     getLiteral("bp_encoding_desc"), BLIB::BP_ENCODING_ENUM,
                                                     BLIB::BP_ENCODING_ENUM_WESTERN_EUROPEAN__WINDOWS_1252_);
const VornBridgeOptionLiteral KVB_SRRDM::BP_VERSION("Version", Kind::choice, getLiteral("bp_version_name"),
                                                    getLiteral("bp_version_desc"), BP_VERSION_ENUM,
                                                    BP_VERSION_ENUM_2_8_4_2_8_5);

void VornSilverrunRdm262ImportDllInterface::getOptionList(VornOptionList& options) {
  constexpr const char* kExtensions[] = {"txt", nullptr};
  options.removeAll();
  auto file = KVB_SRRDM::BP_FILE.generateOption(true, kExtensions, OpenMode::read, true);
  file->setUnreadableFileMessage(KVB_SRRDM::SILRDM_I_UNABLE_TO_OPEN_INPUT_FILE);
  options.add(std::move(file));
  options.add(KVB_SRRDM::BP_ROLE_NAME_LOCATION.generateOption(true));
  options.add(KVB_SRRDM::BP_OPEN_MODE.generateOption(false));
  options.add(KVB_SRRDM::BP_ENCODING.generateOption(false));
  options.add(KVB_SRRDM::BP_VERSION.generateOption(true));
}

}  // namespace silrdm
