#include "bridge/messages/texts.h"

#include <array>

namespace silrdm {

namespace {

struct Text {
  const char* name;
  const char* text;
};

// clang-format off
constexpr std::array<Text, 40> kTexts = {{
    {"bp_encoding_desc",
     "Specifies the character set encoding of the model to be imported or exported. If there are multiple choices for a language, the actual encoding will be indicated between parentheses."},
    {"bp_encoding_name", "Encoding"},
    {"bp_file_default", ""},
    {"bp_file_desc",
     "When a model is currently loaded in Silverrun RDM 2.4.4:\n"
     "1. Choose 'Import-Export' from the 'Util' menu.\n"
     "2. Choose 'Export' from the created 'Import-Export' menu.\n"
     "3. Type the file name for the model you are saving in the 'File Name' text box.  Press the browse button to select a specific directory.\n"
     "4. Click 'Save'.\n"
     "\n"
     "When a model is currently loaded in Silverrun RDM 2.6.2 or 2.8.4:\n"
     "1. Choose 'Import-Export' from the 'File' menu.\n"
     "2. On the created 'Transfer Parameters' dialog box, choose 'Export' from the 'File' menu.\n"
     "3. Type the file name for the model you are saving in the 'File Name' text box. Press the browse button to select a specific directory.\n"
     "4. Click 'Save'.\n"
     "\n"
     "The bridge will use the generated TXT file as input.\n"
     "\n"
     "Please do not change the settings for 'Separators' and 'Transfer Content'.\n"
     "The bridge relies on default settings to import the generated TXT file."},
    {"bp_file_name", "File"},
    {"bp_open_mode_desc",
     "By default the file will open in Binary mode on Windows. Depending on your version of Silverrun or the way you export the data from the tool, you may need to instruct the bridge to open the file in Text mode."},
    {"bp_open_mode_enum_binary", "Binary"},
    {"bp_open_mode_enum_text", "Text"},
    {"bp_open_mode_name", "Open Mode"},
    {"bp_role_name_location_desc",
     "Silverrun is a data modeling tool intended to be used with ER Methodology/Notation.\n"
     "The following example assumes an entity A called \"Car\", and entity B called \"Person\" connected with an \"AB\" relationship called \"Ownership\"\n"
     "\n"
     "Link Origin (ER Modeling Style)\" (DEFAULT VALUE) means:\n"
     "- The \"AtoB\" role name is located on the source (close to \"A\")\n"
     "- The \"AtoB\" role name is supposed to be a \"verb\" qualifying the role from entity \"A\", causing the AtoB role name to be next the source A object.\n"
     "\n"
     "Link Destination (UML Modeling Style):\n"
     "- The \"AtoB\" role name is located on the destination (close to \"B\")\n"
     "- The \"AtoB\" role name is supposed to be a \"noun\" qualifying the entity \"B\", causing the AtoB role name is next the destination B object."},
    {"bp_role_name_location_enum_link_destination__uml_modeling_style_",
     "Link Destination (UML Modeling Style)"},
    {"bp_role_name_location_enum_link_origin__er_modeling_style_", "Link Origin (ER Modeling Style)"},
    {"bp_role_name_location_name", "Role Name Location"},
    {"bp_version_desc", "Select here the version of Silverrun RDM you want to use."},
    {"bp_version_enum_2_4_4", "2.4.4"},
    {"bp_version_enum_2_6_2", "2.6.2"},
    {"bp_version_enum_2_7_2", "2.7.2"},
    {"bp_version_enum_2_8_4_2_8_5", "2.8.4/2.8.5"},
    {"bp_version_name", "Version"},
    {"bridge_spec_silverrunrdm_import_description",
     "This bridge imports a relational data model from Silverrun RDM in TXT file format.\n"
     "\n"
     "REQUIREMENTS\n"
     "n/a\n"
     "\n"
     "FREQUENTLY ASKED QUESTIONS\n"
     "n/a\n"
     "\n"
     "LIMITATIONS\n"
     "The limitations that all bridges share are told in the host's document on known limitations, on its maker's web site and in its documentation folder.\n"
     "\n"
     "SUPPORT\n"
     "Provide a trouble shooting package with debug log. Debug log can be set in the UI or in conf/conf.properties with VORN_LOG_LEVEL=6"},
    {"silrdm_i_bad_file_format", "Invalid input file format"},
    {"silrdm_i_cannot_connect_attribute", "Cannot connect the attribute to its entity"},
    {"silrdm_i_cannot_connect_generalization",
     "Cannot connect the generalization to its supertype/subtype entity"},
    {"silrdm_i_cannot_connect_key", "Cannot connect the key to its entity/association role"},
    {"silrdm_i_cannot_connect_relationship", "Cannot connect the association to its parent/child entity"},
    {"silrdm_i_creating_columns", "Importing columns..."},
    {"silrdm_i_creating_common_items", "Importing common items..."},
    {"silrdm_i_creating_domains", "Importing domains..."},
    {"silrdm_i_creating_keys", "Importing primary and foreign keys..."},
    {"silrdm_i_creating_package", "Creating the main package and diagram..."},
    {"silrdm_i_creating_relationships", "Importing relationships..."},
    {"silrdm_i_creating_specializations", "Importing specializations..."},
    {"silrdm_i_creating_tables", "Importing tables..."},
    {"silrdm_i_creating_users", "Importing users..."},
    {"silrdm_i_generate_keys", "Generating foreign keys..."},
    {"silrdm_i_line_too_long", "Line too long"},
    {"silrdm_i_target_system_detected", "Target system detected as '{0}'"},
    {"silrdm_i_unable_to_open_input_file", "Unable to open input file : '{0}'"},
    {"silrdm_i_unknown_datatype",
     "Unknown datatype '{0}' for system '{1}': will be replaced by 'undefined'"},
    {"silrdm_i_unknown_target_system", "Target system '{0}' version '{1}' is not supported"},
}};
// clang-format on

}  // namespace

SilverrunRdmImportLiterals::SilverrunRdmImportLiterals() : VornTextLiteralCollection("SilverrunRdmImport") {
  for (const Text& text : kTexts) {
    newLiteral(text.name, text.text);
  }
}

const SilverrunRdmImportLiterals& getLiteralCollection() {
  static const SilverrunRdmImportLiterals collection;
  return collection;
}

const VornTextLiteral* findLiteral(const VornString& name) {
  return getLiteralCollection().getLiteral(name);
}

const VornTextLiteral& getLiteral(const char* name) {
  return *findLiteral(name);
}

}  // namespace silrdm
