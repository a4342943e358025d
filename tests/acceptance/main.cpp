// Makes a test of every case file, TOPIC.NAME for TOPIC/NAME.case, and runs them with the tests written in
// C++.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <vector>

#include "case_file.h"
#include "saved_model.h"

namespace {

std::string toLines(const std::vector<Message>& messages) {
  std::string lines;
  for (const Message& message : messages) {
    lines += "\n  " + toLine(message);
  }
  return lines;
}

class CaseTest : public testing::Test {
 public:
  explicit CaseTest(std::filesystem::path path) : path_(std::move(path)) {}

  void TestBody() override {
    try {
      const CaseFile wanted = parseCase(readFile(path_));
      SCOPED_TRACE(wanted.title);
      ImportRunner runner;
      const ImportResult result = runner.run(wanted.exportBytes, wanted.options);
      for (const std::string& problem : result.problems) {
        fail(1, problem);
      }
      checkMessages(wanted.messages, result.messages);
      checkFailure(wanted.failure, result.failure);
      if (result.saved) {
        checkModel(wanted.parts, *result.saved);
      }
      // Once more, with debug messages: neither what the first import left behind nor telling more may count.
      const ImportResult again = runner.run(wanted.exportBytes, wanted.options, VornSeverity::debug);
      if (!(again == result)) {
        fail(1, "imported again, it has " +
                    std::string(again.saved == result.saved ? "the same model" : "another model") +
                    " and the messages:" + toLines(again.messages));
      }
    } catch (const CaseError& error) {
      fail(error.getLine(), error.what());
    } catch (const std::invalid_argument& error) {
      fail(1, error.what());
    }
  }

 private:
  // Shows `text` as a failure at that line of the case file.
  void fail(int line, const std::string& text) const { ADD_FAILURE_AT(path_.c_str(), line) << text; }

  void checkMessages(const ExpectedMessages& wanted, std::vector<Message> got) const {
    if (!wanted.withProgress) {
      std::erase_if(got, [](const Message& message) { return message.severity == VornSeverity::status; });
    }
    if (!std::equal(wanted.messages.begin(), wanted.messages.end(), got.begin(), got.end(), isMeant)) {
      fail(wanted.line, "the messages are:" + toLines(got));
    }
  }

  void checkFailure(const std::optional<ExpectedFailure>& wanted,
                    const std::optional<ImportFailure>& got) const {
    if (wanted && !got) {
      fail(wanted->line, "does not fail");
    } else if (got && !(wanted && isMeant(wanted->message, got->message) &&
                        got->context.find(wanted->context) != std::string::npos)) {
      fail(wanted ? wanted->line : 1, "fails with " + toLine(got->message) + " (" + got->context + ')');
    }
  }

  void checkModel(const std::vector<ExpectedPart>& parts, const std::string& saved) const {
    const SavedModel model(saved);
    for (const std::string& problem : model.getProblems()) {
      fail(1, "in the saved model, " + problem);
    }
    for (const ExpectedPart& part : parts) {
      for (const std::string& mismatch : model.findMismatches(part.wanted, part.path)) {
        fail(part.line, mismatch);
      }
    }
  }

  std::filesystem::path path_;
};

std::vector<std::filesystem::path> findCases() {
  std::vector<std::filesystem::path> cases;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VORN_CASES)) {
    if (entry.is_regular_file()) {
      cases.push_back(entry.path());
    }
  }
  std::sort(cases.begin(), cases.end());
  return cases;
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const auto cases = findCases();
  try {
    getBridge();
  } catch (const std::runtime_error& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
  if (cases.empty()) {
    std::cerr << "There are no cases in " VORN_CASES "\n";
    return 1;
  }
  for (const auto& path : cases) {
    testing::RegisterTest(path.parent_path().filename().c_str(), path.stem().c_str(), nullptr, nullptr,
                          path.c_str(), 1, [path]() -> testing::Test* { return new CaseTest(path); });
  }
  return RUN_ALL_TESTS();
}
