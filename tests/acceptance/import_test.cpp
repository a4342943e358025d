// What takes more than one import, or a whole model, to see.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <ostream>

#include "import_runner.h"
#include "saved_model.h"

namespace {

std::string readExample(const std::string& name) {
  return readFile(std::filesystem::path(VORN_EXAMPLES) / name);
}

// How many there are of each: of the package's elements by their type, of their columns, and of schemas.
std::map<std::string, std::size_t> count(const rapidjson::Value& model) {
  std::map<std::string, std::size_t> counts;
  for (const auto& element : model["designPackages"][0]["elements"].GetArray()) {
    ++counts[element["elementType"].GetString()];
    if (element.HasMember("attributes")) {
      counts["columns"] += element["attributes"].Size();
    }
  }
  counts["schemas"] = model["dataPackages"].Size();
  return counts;
}

struct Example {
  const char* file;
  std::size_t tables;
  std::size_t views;
  std::size_t columns;  // those of views, too
  std::size_t owners;

  friend void PrintTo(const Example& example, std::ostream* out) { *out << example.file; }
};

class ExampleTest : public testing::TestWithParam<Example> {};

TEST_P(ExampleTest, HasWhatItsDescriptionSays) {
  const Example& example = GetParam();
  const ImportResult result = ImportRunner().run(readExample(example.file));
  ASSERT_TRUE(result.saved);
  EXPECT_EQ(result.problems, std::vector<std::string>());
  for (const Message& message : result.messages) {
    EXPECT_EQ(message.severity, VornSeverity::status) << toLine(message);
  }
  const SavedModel model(*result.saved);
  EXPECT_EQ(model.getProblems(), std::vector<std::string>());
  auto counts = count(model.getRoot());
  EXPECT_EQ(counts["Class"], example.tables);
  EXPECT_EQ(counts["SQLViewEntity"], example.views);
  EXPECT_EQ(counts["columns"], example.columns);
  EXPECT_EQ(counts["schemas"], example.owners);
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleTest,
                         testing::Values(Example{"bookshop.txt", 11, 1, 59, 1},
                                         Example{"harbour.txt", 80, 6, 398, 8},
                                         Example{"museum-keys.txt", 15, 0, 54, 2}));

TEST(ImportTest, DoesNotFeelAFailedImportBeforeIt) {
  const std::string good = readExample("bookshop.txt");
  ImportRunner runner;
  const ImportResult before = runner.run(good);
  ASSERT_TRUE(before.saved);
  // Cut in the middle, when tables, columns and users wait to be put together.
  const ImportResult failed = runner.run(readExample("harbour.txt").substr(0, good.size() / 2));
  EXPECT_TRUE(failed.failure);
  EXPECT_EQ(runner.run(good), before);
}

TEST(ImportTest, IsTheSameForEveryVersion) {
  const std::string bytes = readExample("harbour.txt");
  ImportRunner runner;
  const ImportResult usual = runner.run(bytes);
  for (const char* version : {"2.8.4/2.8.5", "2.7.2", "2.6.2", "2.4.4", "", "no version"}) {
    EXPECT_EQ(runner.run(bytes, {{"Version", version}}), usual) << version;
  }
}

}  // namespace
