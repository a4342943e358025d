// Makes a test of every case file: TOPIC.NAME of TOPIC/NAME.case.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "case_file.h"
#include "saved_model.h"
#include "tests/support.h"

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
    std::erase_if(got, [&](const Message& message) {
      return message.code.starts_with("STATUS") &&
             std::ranges::none_of(wanted.messages, [&](auto& line) { return message.isMeantBy(line); });
    });
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

std::vector<std::string> splitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
    lines.push_back(line.substr(first, line.find_last_not_of(' ') + 1 - first));
  }
  return lines;
}

// Each paragraph must stand in the output as it is, behind the one before it.
void checkOutput(const std::string& file, const ExpectedOutput& wanted, const std::string& output) {
  const std::vector<std::string> got = splitLines(output);
  auto from = got.begin();
  for (auto line = wanted.lines.begin(); line != wanted.lines.end();) {
    const auto end = std::find(line, wanted.lines.end(), "");
    from = std::search(from, got.end(), line, end);
    if (from == got.end() && line != end) {
      ADD_FAILURE_AT(file.c_str(), wanted.line) << "Not found, from on: " << *line << "\nin:\n" << output;
      return;
    }
    from += end - line;
    line = end == wanted.lines.end() ? end : end + 1;
  }
}

class CaseTest : public testing::Test {
 public:
  explicit CaseTest(std::string file) : file_(std::move(file)) {}

  void TestBody() override {
    const CaseFile wanted = parseCase(file_, readFile(file_));
    SCOPED_TRACE(file_ + ": " + wanted.title);
    std::vector<VornOutputFormat> formats;
    for (const ExpectedOutput& output : wanted.outputs) {
      formats.push_back(output.format);
    }
    const ImportResult got = runImport(wanted.exportBytes, wanted.options, VornSeverity::status, formats);
    EXPECT_EQ(got.problems, std::vector<std::string>());
    checkMessages(wanted, got.messages);
    checkFailure(wanted.failure, got);
    if (got.saved) {
      checkModel(file_, wanted.parts, *got.saved);
      for (std::size_t i = 0; i < wanted.outputs.size(); ++i) {
        checkOutput(file_, wanted.outputs[i], got.outputs[i]);
      }
    }
    // Neither what the first import left behind nor debug messages may count.
    ImportResult again = runImport(wanted.exportBytes, wanted.options, VornSeverity::debug, formats);
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

// Writes the export of each case into the folder, as TOPIC-NAME.txt, for programs that try them elsewhere.
int writeExports(const std::set<std::filesystem::path>& cases, const std::filesystem::path& folder) {
  for (const auto& path : cases) {
    const std::string name = path.parent_path().filename().string() + "-" + path.stem().string() + ".txt";
    std::ofstream file(folder / name, std::ios::binary);
    file << parseCase(path, readFile(path)).exportBytes;
    if (!file.flush()) {
      std::cerr << "cannot write " << name << '\n';
      return 1;
    }
  }
  return 0;
}

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
  if (argc == 3 && std::string_view(argv[1]) == "--write-exports") {
    return writeExports(cases, argv[2]);
  }
  return RUN_ALL_TESTS();
}
