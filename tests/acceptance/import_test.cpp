// What takes more than one import, or a whole model, to see.
#include <gtest/gtest.h>

#include <array>
#include <iterator>
#include <regex>

#include "../support.h"
#include "import_runner.h"
#include "saved_model.h"

namespace {

std::string readExample(const std::string& name) {
  return readFile(VORN_EXAMPLES "/" + name);
}

TEST(ImportTest, GivesOfEachExampleWhatItsDescriptionSays) {
  const std::array kinds = {"class",       "view",           "attribute", "schema",
                            "association", "generalization", "key",       "index"};
  const std::pair<const char*, std::array<std::ptrdiff_t, kinds.size()>> examples[] = {
      {"bookshop.txt", {11, 1, 59, 1, 10, 1, 27, 27}},
      {"harbour.txt", {80, 6, 398, 8, 110, 6, 213, 213}},
      {"museum-keys.txt", {15, 0, 65, 2, 18, 0, 36, 36}}};
  for (const auto& [file, counts] : examples) {
    SCOPED_TRACE(file);
    const ImportResult result = runImport(readExample(file), {}, VornSeverity::debug);
    EXPECT_EQ(result.problems, std::vector<std::string>());
    for (const Message& message : result.messages) {
      EXPECT_EQ(message.code.find("STATUS"), 0U) << message.toLine();
    }
    ASSERT_TRUE(result.saved);
    EXPECT_EQ(SavedModel(*result.saved).getProblems(), std::vector<std::string>());
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      const std::regex id("\"id\": \"" + std::string(kinds[i]) + ':');
      EXPECT_EQ(std::distance(std::sregex_iterator(result.saved->begin(), result.saved->end(), id), {}),
                counts[i])
          << kinds[i];
    }
  }
}

TEST(ImportTest, FailsWhereASectionIsMissingOrAModelGoesOn) {
  const auto ends = [](std::size_t count) { return std::string(count, '\x1C'); };
  // Sections that are read may be missing up to the next one that is passed over.
  const std::pair<std::string, int> cut[] = {{"", 1},
                                             {"This is no export.", 2},
                                             {ends(3), 5},
                                             {ends(64), 66},
                                             {ends(65), 66},
                                             {ends(66), 67},
                                             {ends(50) + "\t\tShop\r" + ends(18), 51},
                                             {ends(50) + "\r\t\tShop" + ends(18), 51}};
  for (const auto& [bytes, section] : cut) {
    const ImportResult result = runImport(bytes);
    ASSERT_TRUE(result.failure);
    EXPECT_EQ(result.failure->toLine(), "FATAL KVB_SRRDM_F0003 Invalid input file format");
    EXPECT_NE(result.context.find("section " + std::to_string(section) + " of 68"), std::string::npos);
  }
  for (const std::string& behind :
       {ends(7) + "x", ends(8), ends(8) + "x\ry", ends(9) + "\tV\t\tVoid\x1C\2"}) {
    EXPECT_EQ(runImport(ends(59) + "\t1" + behind), runImport(ends(59) + "\t1" + ends(9)));
  }
}

TEST(ImportTest, IsTheSameForEveryVersion) {
  const std::string bytes = readExample("harbour.txt");
  const ImportResult usual = runImport(bytes);
  for (const char* version : {"2.8.4/2.8.5", "2.7.2", "2.6.2", "2.4.4", "", "no version"}) {
    EXPECT_EQ(runImport(bytes, {{"Version", version}}), usual) << version;
  }
}

}  // namespace
