// Exports mangled in many ways, as fuzzing does it, but the same ones each time.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>

#include "case_file.h"
#include "fuzz/targets.h"
#include "import_runner.h"
#include "tests/support.h"

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed);

namespace {

constexpr std::size_t kRoom = 4096;  // that an export may grow by

std::minstd_rand& generator() {
  static std::minstd_rand random;
  return random;
}

// Changes a few bytes, most of them to those that mean something.
void mangle(std::string& bytes, std::minstd_rand& random) {
  constexpr std::string_view kBytes("\0\2\3\t\n\r\x1Cx", 8);
  for (auto left = 1 + random() % 3; left > 0; --left) {
    const std::size_t place = random() % (bytes.size() + 1);
    const char byte = kBytes[random() % kBytes.size()];
    switch (random() % 3) {
      case 0:
        bytes.insert(place, 1, byte);
        break;
      case 1:
        bytes.erase(place, 1);
        break;
      default:
        bytes.replace(place, 1, 1, byte);
        break;
    }
  }
}

// Changes what records refer to, their words, their number, or bytes of their fields.
std::string mutate(const std::string& bytes, unsigned seed) {
  std::string mutated = std::string(kImportHead, '\0') + bytes;
  const std::size_t size = mutated.size();
  mutated.resize(size + kRoom);
  auto* const data = reinterpret_cast<std::uint8_t*>(mutated.data());
  return mutated.substr(kImportHead, LLVMFuzzerCustomMutator(data, size, size + kRoom, seed) - kImportHead);
}

std::vector<std::string> readExports() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VORN_CASES)) {
    if (entry.is_regular_file()) {
      files.push_back(entry.path());
    }
  }
  std::ranges::sort(files);
  std::vector<std::string> exports{readFile(VORN_EXAMPLES "/bookshop.txt")};
  for (const auto& file : files) {
    exports.push_back(parseCase(file, readFile(file)).exportBytes);
  }
  return exports;
}

TEST(MangledExportTest, HasEachRecordThatIsReadKeptOrDropped) {
  constexpr unsigned kImports = 2000;
  const std::vector<std::string> exports = readExports();
  unsigned saved = 0;
  for (unsigned seed = 0; seed < kImports; ++seed) {
    std::string bytes = mutate(exports[seed % exports.size()], seed);
    if (seed % 3 == 0) {
      mangle(bytes, generator());
    }
    ImportResult result = runImport(bytes, {}, VornSeverity::debug);
    std::erase_if(result.problems,
                  [](const std::string& problem) { return problem.starts_with("would be refused"); });
    ASSERT_EQ(result.problems, std::vector<std::string>()) << "seed " << seed;
    saved += static_cast<unsigned>(result.saved.has_value());
  }
  EXPECT_GT(saved, kImports / 2);
}

}  // namespace

// Called by the mutator for the bytes of a field.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize) {
  std::string bytes(reinterpret_cast<const char*>(data), size);
  mangle(bytes, generator());
  bytes.resize(std::min(bytes.size(), maxSize));
  std::ranges::copy(bytes, data);
  return bytes.size();
}
