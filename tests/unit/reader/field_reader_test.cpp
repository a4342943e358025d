#include "reader/field_reader.h"

#include "../support.h"
#include "bridge/import_state.h"

namespace silrdm {
namespace {

void open(const std::string& bytes) {
  const TempFolder folder;
  inputFile = VornString(folder.write("export.txt", bytes));
  ASSERT_TRUE(inputFile.open(VornFile::kRead | VornFile::kBinary));
}

TEST(ReadRecord, CutsToAnyCapacityAndSaysSoOnceForEach) {
  for (const std::size_t capacity : {1U, 2U, 5U}) {
    SCOPED_TRACE(capacity);
    open("\rabc\2x\ry\3z\rabcd\r\2\3;");
    CountingLog log;
    importLog = &log;
    std::vector<char> buffer(capacity + 1, '?');
    for (const std::string record : {"", "abc\2x\ry\3z", "abcd", "\2\3;"}) {
      EXPECT_EQ(readRecord(buffer.data(), capacity), !record.ends_with(';'));
      EXPECT_EQ(buffer.data(), record.substr(0, capacity - 1));
      EXPECT_EQ(buffer.back(), '?') << "written behind the buffer";
    }
    EXPECT_EQ(log.getCount(VornSeverity::warning), capacity < 5 ? 3U : 1U);
  }
  releaseImportState();
  importLog = nullptr;
}

TEST(SkipSection, StopsRightBehindTheFirstEndOfSection) {
  for (const std::size_t length : {0U, 1U, 65535U, 65536U}) {
    open(std::string(length, 'a') + "\x1C\x1C");
    skipSection(false);
    EXPECT_EQ(inputFile.getPosition(), length + 1);
  }
  releaseImportState();
}

}  // namespace
}  // namespace silrdm
