// What takes more than one import, or a whole model, to see.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "import_runner.h"
#include "saved_model.h"

namespace {

std::string readExample(const std::string& name) {
  return readFile(std::filesystem::path(VORN_EXAMPLES) / name);
}

using Counts = std::map<std::string, std::size_t>;

TEST(ImportTest, GivesOfEachExampleWhatItsDescriptionSays) {
  const std::pair<const char*, Counts> examples[] = {
      {"bookshop.txt", {{"Class", 11}, {"SQLViewEntity", 1}, {"columns", 59}, {"schemas", 1}}},
      {"harbour.txt", {{"Class", 80}, {"SQLViewEntity", 6}, {"columns", 398}, {"schemas", 8}}},
      {"museum-keys.txt", {{"Class", 15}, {"SQLViewEntity", 0}, {"columns", 54}, {"schemas", 2}}}};
  for (const auto& [file, counts] : examples) {
    SCOPED_TRACE(file);
    const ImportResult result = runImport(readExample(file));
    EXPECT_EQ(result.problems, std::vector<std::string>());
    for (const Message& message : result.messages) {
      EXPECT_EQ(message.code.find("STATUS"), 0U) << message.toLine();
    }
    ASSERT_TRUE(result.saved);
    const SavedModel model(*result.saved);
    EXPECT_EQ(model.getProblems(), std::vector<std::string>());
    Counts got{{"schemas", model.getRoot()["dataPackages"].Size()}};
    for (const auto& element : model.getRoot()["designPackages"][0]["elements"].GetArray()) {
      ++got[element["elementType"].GetString()];
      got["columns"] += element.HasMember("attributes") ? element["attributes"].Size() : 0;
    }
    for (const auto& [what, count] : counts) {
      EXPECT_EQ(got[what], count) << what;
    }
  }
}

TEST(ImportTest, DoesNotFeelAFailedImportBeforeIt) {
  const std::string good = readExample("bookshop.txt");
  const ImportResult before = runImport(good);
  ASSERT_TRUE(before.saved);
  // Cut in the middle, when tables, columns and users wait to be put together.
  EXPECT_TRUE(runImport(readExample("harbour.txt").substr(0, good.size() / 2)).failure);
  EXPECT_EQ(runImport(good), before);
}

TEST(ImportTest, IsTheSameForEveryVersion) {
  const std::string bytes = readExample("harbour.txt");
  const ImportResult usual = runImport(bytes);
  for (const char* version : {"2.8.4/2.8.5", "2.7.2", "2.6.2", "2.4.4", "", "no version"}) {
    EXPECT_EQ(runImport(bytes, {{"Version", version}}), usual) << version;
  }
}

}  // namespace
