// The harness itself: a case that is wrong or wants something else must not pass.
#include <gtest/gtest.h>

#include "case_file.h"
#include "saved_model.h"

namespace {

constexpr const char* kExpectation = "\nexpect elements\n  []\n";

// The line that a case is refused for; 0 when it is not.
int getRefusedLine(const std::string& text) {
  try {
    parseCase(text);
    return 0;
  } catch (const CaseError& error) {
    return error.getLine();
  }
}

TEST(CaseFileTest, IsRefusedForWhatItDoesNotMean) {
  const std::string title = "title: a\n";
  EXPECT_EQ(getRefusedLine(title + kExpectation), 0);
  EXPECT_EQ(getRefusedLine(kExpectation), 1) << "no title";
  EXPECT_EQ(getRefusedLine(title), 1) << "no expectation";
  EXPECT_EQ(getRefusedLine("  1=a\n" + title + kExpectation), 1);
  EXPECT_EQ(getRefusedLine(title + "  1=a" + kExpectation), 1);
  EXPECT_EQ(getRefusedLine(title + "optoin File: x" + kExpectation), 2);
  EXPECT_EQ(getRefusedLine(title + "section 69" + kExpectation), 2);
  EXPECT_EQ(getRefusedLine(title + "section 7\nsection 7" + kExpectation), 3);
  EXPECT_EQ(getRefusedLine(title + "cut after section 6\nsection 7" + kExpectation), 1);
  EXPECT_EQ(getRefusedLine(title + "section 7\n# comment\n  1=a | 1=b" + kExpectation), 4) << "out of order";
  EXPECT_EQ(getRefusedLine(title + "section 7\n  a" + kExpectation), 3) << "no field";
  EXPECT_EQ(getRefusedLine(title + "section 7\n  1=<EXT>" + kExpectation), 3) << "no byte";
  EXPECT_EQ(getRefusedLine(title + "expect elemens" + kExpectation), 2);
  EXPECT_EQ(getRefusedLine(title + "expect elements\n\n  [\n  ,]"), 5) << "no JSON";
  EXPECT_EQ(getRefusedLine(title + "expect failure" + kExpectation), 2) << "no message";
  EXPECT_EQ(getRefusedLine(title + "expect failure\n  FATAL X" + kExpectation), 1) << "a failure and a model";
}

TEST(CaseFileTest, SpellsAnExport) {
  const CaseFile parsed = parseCase(
      "title: a\nrecord end: <CR><LF>\ncut after section 2\ntail: <41*3>\nsection 2\n"
      "  2=<STX> b <ETX> | 4=<E9>=\n  empty\n  raw: x | y<SP>" +
      std::string(kExpectation));
  EXPECT_EQ(parsed.exportBytes,
            "\x1C\t\2 b \3\t\t\xE9=\r\n\r\nx | y \x1C"
            "AAA");
}

class SavedModelTest : public testing::Test {
 protected:
  std::vector<std::string> compare(const char* wanted) const {
    rapidjson::Document document;
    document.Parse(wanted);
    return model_.findMismatches(document, "/list");
  }

  const SavedModel model_{
      R"({"list": [{"id": "x:1", "name": "a"}, {"id": "x:2", "class": "x:1", "attributes": []}]})"};
};

TEST_F(SavedModelTest, AgreesWithAnExcerpt) {
  EXPECT_EQ(compare(R"([{}, {"class": {"name": "a"}}])"), std::vector<std::string>());
}

TEST_F(SavedModelTest, TellsWhereItIsAnother) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(compare(R"([{"name": "b"}, {"attributes": {}}])"),
            (Lines{R"(/list/0/name: wanted "b", got "a")", "/list/1/attributes: wanted {}, got []"}));
  EXPECT_EQ(
      compare(R"([{"nane": "a"}, {"class": {"name": 1}}])"),
      (Lines{R"(/list/0/nane: wanted "a", got no such key)", R"(/list/1/class/name: wanted 1, got "a")"}));
  EXPECT_EQ(compare("[{}]").size(), 1U);
  EXPECT_EQ(compare("[{}, {}, {}]").size(), 1U);
  EXPECT_EQ(compare("[{}, null]").size(), 1U);
}

TEST(SavedModelProblemsTest, AreFoundInAnyModel) {
  const auto findProblems = [](const char* json) { return SavedModel(json).getProblems().size(); };
  EXPECT_EQ(findProblems(R"({"a": {"id": "x"}, "type": "x", "attributes": ["x"], "index": null})"), 0U);
  EXPECT_EQ(findProblems(R"({"a": {"id": "x"}, "b": {"id": "x"}})"), 1U);
  EXPECT_EQ(findProblems(R"({"a": {"id": "x"}, "type": "y"})"), 1U);
  EXPECT_EQ(findProblems(R"({"a": {"id": "x"}, "attributes": ["x", "y", null]})"), 2U);
  EXPECT_EQ(findProblems(R"({"a": )"), 1U);
  EXPECT_EQ(findProblems("{\"a\": \"\xE9\"}"), 1U) << "not UTF-8";
}

}  // namespace
