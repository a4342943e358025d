// Makes a test of every case file: TOPIC.NAME of TOPIC/NAME.case.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <set>
#include <utility>
#include <vector>

#include "case_file.h"
#include "saved_model.h"

namespace {

std::string toLines(const std::vector<Message>& messages) {
  std::string lines;
  for (const Message& message : messages) {
    lines += "\n  " + message.toLine();
  }
  return lines;
}

void checkMessages(const CaseFile& wanted, std::vector<Message> got) {
  if (!wanted.withProgress) {
    std::erase_if(got, [](const Message& message) { return message.code.starts_with("STATUS"); });
  }
  EXPECT_TRUE(std::equal(got.begin(), got.end(), wanted.messages.begin(), wanted.messages.end(),
                         [](const Message& message, const auto& line) { return message.isMeantBy(line); }))
      << "The messages are:" << toLines(got);
}

void checkFailure(const std::vector<std::string>& wanted, const ImportResult& got) {
  ASSERT_EQ(got.failure.has_value(), !wanted.empty()) << (got.failure ? got.failure->toLine() : "");
  for (const std::string& line : wanted) {
    EXPECT_TRUE(got.failure->isMeantBy(line) || got.context.find(line) != std::string::npos)
        << "Wanted: " << line << "\nThe failure is: " << got.failure->toLine() << " (" << got.context << ')';
  }
}

void checkModel(const std::string& file, const std::vector<ExpectedPart>& parts, const std::string& saved) {
  const SavedModel model(saved);
  EXPECT_EQ(model.getProblems(), std::vector<std::string>());
  for (const ExpectedPart& part : parts) {
    for (const std::string& mismatch : model.findMismatches(part.json, part.path)) {
      ADD_FAILURE_AT(file.c_str(), part.line) << mismatch;
    }
  }
}

class CaseTest : public testing::Test {
 public:
  explicit CaseTest(std::string file) : file_(std::move(file)) {}

  void TestBody() override {
    const CaseFile wanted = parseCase(file_, readFile(file_));
    SCOPED_TRACE(file_ + ": " + wanted.title);
    const ImportResult got = runImport(wanted.exportBytes, wanted.options);
    EXPECT_EQ(got.problems, std::vector<std::string>());
    checkMessages(wanted, got.messages);
    checkFailure(wanted.failure, got);
    if (got.saved) {
      checkModel(file_, wanted.parts, *got.saved);
    }
    // Neither what the first import left behind nor debug messages may count.
    ImportResult again = runImport(wanted.exportBytes, wanted.options, VornSeverity::debug);
    const std::string events = std::exchange(again.events, {});
    EXPECT_EQ(events, wanted.events.value_or(events));
    EXPECT_EQ(again.problems, std::vector<std::string>());
    EXPECT_TRUE(again == got) << "Imported again, it has "
                              << (again.saved == got.saved ? "the same" : "another")
                              << " model, and the messages are:" << toLines(again.messages);
  }

 private:
  std::string file_;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::set<std::filesystem::path> cases;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VORN_CASES)) {
    if (entry.is_regular_file()) {
      cases.insert(entry.path());
    }
  }
  for (const auto& path : cases) {
    testing::RegisterTest(path.parent_path().filename().c_str(), path.stem().c_str(), nullptr, nullptr,
                          path.c_str(), 1, [path]() -> testing::Test* { return new CaseTest(path); });
  }
  if (cases.empty()) {
    std::cerr << "There are no cases in " << VORN_CASES << '\n';
    return 1;
  }
  return RUN_ALL_TESTS();
}
