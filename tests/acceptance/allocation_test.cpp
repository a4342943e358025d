// Imports in which an allocation fails: each of them in turn, until an import needs no further one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <utility>

#include "case_file.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/writers/model_outputs.h"
#include "tests/support.h"

namespace {

long allocationsLeft = -1;  // until one fails; negative: none does, or one did

struct Outcome {
  std::string failure;  // its code; empty where there was none
  bool wasEnough;       // no allocation failed
};

Outcome importWith(long allocations, const std::string& input, VornFile& output) {
  static const VornBridgeLibrary library(VORN_PLUGIN);
  VornOptionList options;
  library.getInterface().getOptionList(options);
  options.get("File")->setValue(VornString(input));
  CountingLog log;
  Outcome outcome;
  allocationsLeft = allocations;
  try {
    library.getInterface().run("", output, options, log);
    outcome.wasEnough = std::exchange(allocationsLeft, -1) >= 0;
  } catch (const VornException& problem) {
    allocationsLeft = -1;
    outcome = {problem.getCode().c_str(), false};
  }
  return outcome;
}

// A case, and the format in which its model is saved.
class AllocationTest : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(AllocationTest, FailsCleanlyAndLeavesTheNextImportAsItWas) {
  const TempFolder folder;
  const std::string saved = folder.path("model");
  const auto [name, format] = GetParam();
  const std::string path = std::string(VORN_CASES "/") + name + ".case";
  const std::string input = folder.write("export.txt", parseCase(path, readFile(path)).exportBytes);
  VornModelOutputs outputs({{saved, {.name = format}}});
  importWith(-1, input, outputs.getFile());
  const std::string expected = readFile(saved);
  long allocations = 0;
  for (bool wasEnough = false; !wasEnough; ++allocations) {
    std::ofstream(saved) << "what stood here before";
    const Outcome outcome = importWith(allocations, input, outputs.getFile());
    ASSERT_TRUE(outcome.failure.empty() || outcome.failure == "VORN_F0022") << outcome.failure;
    ASSERT_EQ(readFile(saved), outcome.failure.empty() ? expected : "what stood here before")
        << "at allocation " << allocations;
    wasEnough = outcome.wasEnough;
  }
  EXPECT_GT(allocations, 100);
}

INSTANTIATE_TEST_SUITE_P(Cases, AllocationTest,
                         testing::Values(std::pair("sql/keys", "json"), std::pair("sql/views", "sql"),
                                         std::pair("inheritance/supertype_and_subtypes", "dbml"),
                                         std::pair("types/sizes_of_columns", "mermaid"),
                                         std::pair("diagrams/crows_feet", "dot"),
                                         std::pair("sql/names", "markdown"),
                                         std::pair("finishing/generated_foreign_keys", "json")));

}  // namespace

// In place of the library's own, for the program and all it loads.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  if (allocationsLeft >= 0 && allocationsLeft-- == 0) {
    return nullptr;
  }
  return std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size) {
  if (void* memory = ::operator new(size, std::nothrow)) {
    return memory;
  }
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
