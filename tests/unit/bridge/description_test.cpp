// What the bridge says of itself: messages, options, specification.
#include <thread>

#include "../support.h"
#include "bridge/literals.h"
#include "bridge/messages.h"
#include "bridge/plugin.h"

namespace silrdm {
namespace {

using testing::ElementsAre;

VornImportBridgeDllInterface& bridge() {
  return dynamic_cast<VornImportBridgeDllInterface&>(*getVornSilverrunRdm262ImportInterface());
}

TEST(Messages, HaveTheirCodesAndSeverities) {
  using M = KVB_SRRDM;
  const auto list = [](const auto&... messages) { return std::vector{&messages...}; };
  const auto fromNumber2 =
      list(M::SILRDM_I_UNABLE_TO_OPEN_INPUT_FILE, M::SILRDM_I_BAD_FILE_FORMAT, M::SILRDM_I_LINE_TOO_LONG,
           M::SILRDM_I_CREATING_PACKAGE, M::SILRDM_I_CREATING_DOMAINS, M::SILRDM_I_CREATING_COLUMNS,
           M::SILRDM_I_CREATING_TABLES, M::SILRDM_I_CREATING_RELATIONSHIPS, M::SILRDM_I_CREATING_COMMON_ITEMS,
           M::SILRDM_I_CREATING_SPECIALIZATIONS, M::SILRDM_I_CREATING_KEYS,
           M::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP, M::SILRDM_I_CANNOT_CONNECT_GENERALIZATION,
           M::SILRDM_I_CANNOT_CONNECT_ATTRIBUTE, M::SILRDM_I_CANNOT_CONNECT_KEY, M::SILRDM_I_UNKNOWN_DATATYPE,
           M::SILRDM_I_GENERATE_KEYS, M::SILRDM_I_UNKNOWN_TARGET_SYSTEM, M::SILRDM_I_TARGET_SYSTEM_DETECTED,
           M::SILRDM_I_CREATING_USERS);
  const std::string_view letters = "FFWSSSSSSSSWWWWWSWSS";
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const std::string number = std::to_string(10002 + i).substr(1);
    EXPECT_EQ(fromNumber2[i]->getCode().view(), "KVB_SRRDM_" + (letters[i] + number));
    EXPECT_EQ(" F WS"[static_cast<int>(fromNumber2[i]->getSeverity())], letters[i]);
  }
}

TEST(Options, AreFiveInOrderWhateverTheListHeld) {
  VornOptionList options;
  options.add(std::make_unique<VornOption>("Version", VornOption::Kind::text, "", "", "other"));
  bridge().getOptionList(options);
  std::vector<std::string> found;
  for (const auto& option : options) {
    found.emplace_back((option->getName() + (option->isBasic() ? "=" : ":") + option->getValue()).view());
  }
  EXPECT_THAT(found,
              ElementsAre("File=", "Role Name Location=Link Origin (ER Modeling Style)", "Open Mode:Binary",
                          "Encoding:Western European (Windows-1252)", "Version=2.8.4/2.8.5"));
  EXPECT_THAT(options.get("Version")->getChoices(), ElementsAre("2.8.4/2.8.5", "2.7.2", "2.6.2", "2.4.4"));
}

TEST(Plugin, IsOneObjectWhateverThreadAsksFirst) {
  OrsaDllInterface* answers[8] = {};
  {
    std::vector<std::jthread> threads;
    for (OrsaDllInterface*& answer : answers) {
      threads.emplace_back([&answer] { answer = getVornSilverrunRdm262ImportInterface(); });
    }
  }
  EXPECT_THAT(answers, testing::Each(testing::AllOf(testing::NotNull(), answers[0])));
}

TEST(Plugin, DescribesItselfAndTestsItsFileButCannotBrowse) {
  VornBridgeSpecification specification;
  bridge().getSpecification("whatever", specification);
  EXPECT_THAT(specification.description.c_str(), testing::HasSubstr("\n\nREQUIREMENTS\n"));
  EXPECT_THAT(bridge().getBuildVersion().c_str(), testing::MatchesRegex("11.0.0 - ....-..-.. ..:..:.. PST"));

  const TempFolder folder;
  CountingLog log;
  VornOptionList options;
  bridge().getOptionList(options);
  for (const std::string& path :
       {folder.write("empty.txt", ""), folder.path("missing"), folder.path(), std::string()}) {
    options.get("File")->setValue(path.c_str());
    EXPECT_EQ(bridge().test("", options, log), path.ends_with(".txt")) << path;
  }
  EXPECT_EQ(log.getCount(VornSeverity::fatal), 2U);  // in the words of an import
  EXPECT_EQ(log.getCount(VornSeverity::error), 1U);
  EXPECT_THAT(thrownBy([&] { bridge().browse("", "", options, log); }), testing::StartsWith("VORN_F0001 "));
}

}  // namespace
}  // namespace silrdm
