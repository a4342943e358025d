// What the bridge says of itself: options, specification.
#include "bridge/plugin/plugin.h"
#include "tests/support.h"

namespace silrdm {
namespace {

using testing::ElementsAre;

VornImportBridgeDllInterface& bridge() {
  return dynamic_cast<VornImportBridgeDllInterface&>(*getVornSilverrunRdm262ImportInterface());
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
