// What the bridge says of itself: texts, messages, options, version, specification.
#include <set>
#include <sstream>
#include <thread>

#include "../support.h"
#include "bridge/literals.h"
#include "bridge/messages.h"
#include "bridge/plugin.h"

namespace silrdm {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

VornImportBridgeDllInterface& bridge() {
  return dynamic_cast<VornImportBridgeDllInterface&>(*getVornSilverrunRdm262ImportInterface());
}

TEST(Literals, AreAllThereWhateverThreadAsksFirst) {
  std::istringstream names(
      "bp_encoding_desc bp_encoding_name bp_file_desc bp_file_name bp_open_mode_desc "
      "bp_open_mode_enum_binary bp_open_mode_enum_text bp_open_mode_name bp_role_name_location_desc "
      "bp_role_name_location_enum_link_destination__uml_modeling_style_ "
      "bp_role_name_location_enum_link_origin__er_modeling_style_ bp_role_name_location_name "
      "bp_version_desc bp_version_enum_2_4_4 bp_version_enum_2_6_2 bp_version_enum_2_7_2 "
      "bp_version_enum_2_8_4_2_8_5 bp_version_name bridge_spec_silverrunrdm_import_description "
      "silrdm_i_bad_file_format silrdm_i_cannot_connect_attribute silrdm_i_cannot_connect_generalization "
      "silrdm_i_cannot_connect_key silrdm_i_cannot_connect_relationship silrdm_i_creating_columns "
      "silrdm_i_creating_common_items silrdm_i_creating_domains silrdm_i_creating_keys "
      "silrdm_i_creating_package silrdm_i_creating_relationships silrdm_i_creating_specializations "
      "silrdm_i_creating_tables silrdm_i_creating_users silrdm_i_generate_keys silrdm_i_line_too_long "
      "silrdm_i_target_system_detected silrdm_i_unable_to_open_input_file silrdm_i_unknown_datatype "
      "silrdm_i_unknown_target_system");
  EXPECT_EQ(getLiteralCollection().getName(), "SilverrunRdmImport");
  int count = 0;
  for (std::string name; names >> name; ++count) {
    const VornTextLiteral* literal = findLiteral(name.c_str());
    ASSERT_NE(literal, nullptr) << name;
    EXPECT_FALSE(literal->getText().empty()) << name;
  }
  EXPECT_EQ(count, 39);
  ASSERT_NE(findLiteral("bp_file_default"), nullptr);
  EXPECT_EQ(findLiteral("bp_file_default")->getText(), "");
  EXPECT_EQ(findLiteral("bp_file"), nullptr);
}

TEST(Literals, KeepTheOddPlacesOfTheirTexts) {
  const std::pair<const char*, const char*> cases[] = {
      {"bp_file_desc", "in the 'File Name' text box.  Press the browse"},
      {"bp_file_desc", "2.8.4:\n1. Choose 'Import-Export' from the 'File' menu.\n"},
      {"bp_role_name_location_desc",
       "\n\nLink Origin (ER Modeling Style)\" (DEFAULT VALUE) means:\n- The \"AtoB\""},
      {"bp_role_name_location_desc", "relationship called \"Ownership\"\n\n"},
      {"bridge_spec_silverrunrdm_import_description",
       "format.\n\nREQUIREMENTS\nn/a\n\nFREQUENTLY ASKED QUESTIONS\nn/a\n\nLIMITATIONS\n"},
      {"bridge_spec_silverrunrdm_import_description",
       "\n\nSUPPORT\nProvide a trouble shooting package with debug log. "}};
  for (const auto& [name, part] : cases) {
    EXPECT_THAT(std::string(findLiteral(name)->getText().view()), HasSubstr(part));
  }
}

TEST(Messages, HaveTheirCodesSeveritiesAndTexts) {
  using M = KVB_SRRDM;
  const std::tuple<const VornMessageLiteral&, const char*, const char*> cases[] = {
      {M::SILRDM_I_UNABLE_TO_OPEN_INPUT_FILE, "F0002", "Unable to open input file : '{0}'"},
      {M::SILRDM_I_BAD_FILE_FORMAT, "F0003", "Invalid input file format"},
      {M::SILRDM_I_LINE_TOO_LONG, "W0004", "Line too long"},
      {M::SILRDM_I_CREATING_PACKAGE, "S0005", "Creating the main package and diagram..."},
      {M::SILRDM_I_CREATING_DOMAINS, "S0006", "Importing domains..."},
      {M::SILRDM_I_CREATING_COLUMNS, "S0007", "Importing columns..."},
      {M::SILRDM_I_CREATING_TABLES, "S0008", "Importing tables..."},
      {M::SILRDM_I_CREATING_RELATIONSHIPS, "S0009", "Importing relationships..."},
      {M::SILRDM_I_CREATING_COMMON_ITEMS, "S0010", "Importing common items..."},
      {M::SILRDM_I_CREATING_SPECIALIZATIONS, "S0011", "Importing specializations..."},
      {M::SILRDM_I_CREATING_KEYS, "S0012", "Importing primary and foreign keys..."},
      {M::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP, "W0013",
       "Cannot connect the association to its parent/child entity"},
      {M::SILRDM_I_CANNOT_CONNECT_GENERALIZATION, "W0014",
       "Cannot connect the generalization to its supertype/subtype entity"},
      {M::SILRDM_I_CANNOT_CONNECT_ATTRIBUTE, "W0015", "Cannot connect the attribute to its entity"},
      {M::SILRDM_I_CANNOT_CONNECT_KEY, "W0016", "Cannot connect the key to its entity/association role"},
      {M::SILRDM_I_UNKNOWN_DATATYPE, "W0017",
       "Unknown datatype '{0}' for system '{1}': will be replaced by 'undefined'"},
      {M::SILRDM_I_GENERATE_KEYS, "S0018", "Generating foreign keys..."},
      {M::SILRDM_I_UNKNOWN_TARGET_SYSTEM, "W0019", "Target system '{0}' version '{1}' is not supported"},
      {M::SILRDM_I_TARGET_SYSTEM_DETECTED, "S0020", "Target system detected as '{0}'"},
      {M::SILRDM_I_CREATING_USERS, "S0021", "Importing users..."}};
  for (const auto& [message, code, text] : cases) {
    SCOPED_TRACE(code);
    EXPECT_EQ(message.getCode(), VornString("KVB_SRRDM_") + code);
    EXPECT_EQ(static_cast<int>(message.getSeverity()), *code == 'F' ? 1 : *code == 'W' ? 3 : 4);
    EXPECT_EQ(message.getText(), text);
  }
  EXPECT_EQ(std::size(cases), 20U);
}

TEST(Options, AreFiveInOrderWhateverTheListHeld) {
  VornOptionList options;
  options.add(std::make_unique<VornOption>("Version", VornOption::Kind::text, "", "", "other"));
  options.add(std::make_unique<VornOption>("Other", VornOption::Kind::text, "", "", ""));
  bridge().getOptionList(options);
  const std::tuple<const char*, int, bool, const char*, std::vector<VornString>> expected[] = {
      {"File", 5, true, "", {}},
      {"Role Name Location",
       1,
       true,
       "Link Origin (ER Modeling Style)",
       {"Link Origin (ER Modeling Style)", "Link Destination (UML Modeling Style)"}},
      {"Open Mode", 1, false, "Binary", {"Binary", "Text"}},
      {"Encoding", 1, false, "Western European (Windows-1252)", {}},
      {"Version", 1, true, "2.8.4/2.8.5", {"2.8.4/2.8.5", "2.7.2", "2.6.2", "2.4.4"}}};
  ASSERT_EQ(options.getCount(), std::size(expected));
  auto place = options.begin();
  for (const auto& [name, kind, basic, value, choices] : expected) {
    SCOPED_TRACE(name);
    const VornOption& option = **place++;
    EXPECT_EQ(option.getName(), name);
    EXPECT_EQ(option.getDisplayName(), name);
    EXPECT_EQ(static_cast<int>(option.getKind()), kind);
    EXPECT_EQ(option.isBasic(), basic);
    EXPECT_EQ(option.getValue(), value);
    EXPECT_EQ(option.getDefault(), value);
    EXPECT_FALSE(option.getDescription().empty());
    if (option.getName() == "Encoding") {
      EXPECT_THAT(option.getChoices(), testing::Contains(option.getDefault()));
      EXPECT_THAT(option.getChoices(), testing::Contains(VornString("unknown")));
    } else {
      EXPECT_EQ(option.getChoices(), choices);
    }
  }
  EXPECT_THAT(options.get("File")->getExtensions(), ElementsAre("txt"));
  EXPECT_TRUE(options.get("File")->isRequiredFile());
}

TEST(Plugin, IsOneObjectWhateverThreadAsksFirst) {
  std::vector<OrsaDllInterface*> answers(8);
  std::vector<std::thread> threads;
  for (OrsaDllInterface*& answer : answers) {
    threads.emplace_back([&answer] {
      answer = getVornSilverrunRdm262ImportInterface();
      EXPECT_NE(findLiteral("bp_file_name"), nullptr);
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(std::set<OrsaDllInterface*>(answers.begin(), answers.end()).size(), 1U);
  EXPECT_NE(answers.front(), nullptr);
}

TEST(Plugin, KeepsItsBuildVersion) {
  const std::string version(bridge().getBuildVersion().view());
  EXPECT_THAT(version, testing::MatchesRegex("11\\.0\\.0 - ....-..-.. ..:..:.. PST"));
  EXPECT_EQ(bridge().getBuildVersion(), version.c_str());
}

TEST(Plugin, DescribesItselfWhateverIdentifierItIsAskedFor) {
  VornBridgeSpecification known;
  bridge().getSpecification("SilverrunRdm262Import", known);
  EXPECT_THAT(std::string(known.description.view()),
              StartsWith("This bridge imports a relational data model"));
  EXPECT_EQ(known.buildVersion, bridge().getBuildVersion());
  EXPECT_FALSE(known.beta);
  for (const char* identifier : {"", "silverrunrdm262import", "AnotherImport"}) {
    VornBridgeSpecification other;
    bridge().getSpecification(identifier, other);
    EXPECT_EQ(other.description, known.description);
    EXPECT_EQ(other.toolName, known.toolName);
    EXPECT_EQ(other.toolVersions, known.toolVersions);
  }
  EXPECT_EQ(bridge().getMappingSpecificationXmlFile(), "VornSilverrunRdmImport");
}

TEST(Plugin, CannotBrowse) {
  VornOptionList options;
  CollectingLog log;
  const std::string problem = thrownBy([&] { bridge().browse("path", "filter", options, log); });
  EXPECT_THAT(problem, StartsWith("VORN_F0001 "));
  EXPECT_THAT(problem, testing::AllOf(HasSubstr("'SilverrunRdm262Import'"), HasSubstr("'browse'")));
}

TEST(Plugin, TellsWhetherItsFileIsThere) {
  const TempFolder folder;
  const std::pair<std::string, bool> cases[] = {{folder.write("export.txt", "bytes"), true},
                                                {folder.write("empty.txt", ""), true},
                                                {folder.path("missing"), false},
                                                {folder.path(), false},
                                                {"", false}};
  for (const auto& [path, isThere] : cases) {
    SCOPED_TRACE(path);
    VornOptionList options;
    bridge().getOptionList(options);
    options.get("File")->setValue(VornString(path.c_str()));
    CollectingLog log;
    EXPECT_EQ(bridge().test("", options, log), isThere);
    EXPECT_THAT(log.messages,
                isThere ? testing::Matcher<const std::vector<std::string>&>(IsEmpty())
                        : ElementsAre(testing::AllOf(StartsWith("VORN_E0006 "), HasSubstr("'File'"))));
  }
}

}  // namespace
}  // namespace silrdm
