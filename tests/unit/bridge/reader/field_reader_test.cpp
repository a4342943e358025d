#include "bridge/reader/field_reader.h"

#include <cstdint>

#include "bridge/import/import_state.h"
#include "tests/support.h"

namespace silrdm {
namespace {

TEST(FieldReader, NumbersRecordsBeyondThirtyTwoBits) {
  const TempFolder folder;
  CountingLog log;
  importLog = &log;  // hears of the progress
  inputFile = VornString(folder.write("export", "a\rb\x1c"));
  ASSERT_TRUE(inputFile.open(VornFile::kRead | VornFile::kBinary));
  for (const std::size_t before : {std::size_t{INT32_MAX}, std::size_t{UINT32_MAX}}) {
    readingPlace = {1, before, 0};
    char buffer[8];
    readRecord(buffer, sizeof buffer);
    EXPECT_EQ(readingPlace.record, before + 1);
  }
  releaseImportState();
  importLog = nullptr;
}

}  // namespace
}  // namespace silrdm
