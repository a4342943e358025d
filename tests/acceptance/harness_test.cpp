// The harness itself: a case that is wrong or wants something else must not pass.
#include <gtest/gtest.h>

#include "case_file.h"
#include "saved_model.h"

namespace {

TEST(CaseFileTest, IsRefusedWithFileAndLineForWhatItDoesNotMean) {
  const std::pair<const char*, const char*> cases[] = {
      {"\n\nexpect elements\n  []", "a.case:4: no title"},
      {"title: a\n", "a.case:1: expects neither"},
      {"title: a\nexpect failure\nexpect elemens", "a.case:3: nothing can be expected"},
      {"title: a\n  1=a", "a.case:2: takes one line"},
      {"optoin File: x", "a.case:1: not understood"},
      {"section 69", "a.case:1: no section"},
      {"# comment\nsection 7\n\n  name=a | name=b", "a.case:4: the fields"},
      {"section 7: 4=a", "a.case:1: field 4 has a name"},
      {"section 7\n  nam=1", "a.case:2: section 7 has no field nam"},
      {"section 7\n  name=<EXT>", "a.case:2: no byte"}};
  for (const auto& [text, refusal] : cases) {
    try {
      parseCase("a.case", text);
      ADD_FAILURE() << text;
    } catch (const std::invalid_argument& problem) {
      EXPECT_EQ(std::string_view(problem.what()).find(refusal), 0U) << problem.what();
    }
  }
}

TEST(SavedModelTest, TellsWhereItIsAnother) {
  const SavedModel model(R"({"a": [{"id": "x", "name": "n"}, {"class": "x"}, {"class": "y"}, {"id": "x"}]})");
  EXPECT_EQ(model.getProblems().size(), 2U);
  EXPECT_EQ(model.findMismatches(R"([{"name": "m"}, {"class": {"nane": 1}}, {}, {}])", "/a"),
            (std::vector<std::string>{R"(/a/0/name: wanted "m", got "n")",
                                      "/a/1/class/nane: wanted 1, got no such key"}));
  for (const char* wrong : {"[{}, {}, {}]", "[{}, {}, {}, []]", "[{}, {}, {}, {},]"}) {
    EXPECT_EQ(model.findMismatches(wrong, "/a").size(), 1U) << wrong;
  }
  EXPECT_EQ(SavedModel("{\"a\": \"\xE9\"}").getProblems().size(), 1U) << "not UTF-8";
}

}  // namespace
