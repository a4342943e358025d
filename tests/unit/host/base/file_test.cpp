// Files as they are read and written.
#include "host/base/file.h"

#include <sys/resource.h>

#include <csignal>

#include "host/base/output_file.h"
#include "tests/support.h"

namespace {

TEST(VornFile, GivesEveryByteAndThenTheEnd) {
  const TempFolder folder;
  for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 400000U}) {
    SCOPED_TRACE(size);
    const std::string bytes = makeBytes(size);
    VornFile file(VornString(folder.write("bytes", bytes)));
    ASSERT_TRUE(file.open(VornFile::kRead | VornFile::kBinary));
    std::string got(size / 3, '\0');
    EXPECT_EQ(file.read(got.data(), got.size()), got.size());
    for (std::string_view ahead; got.size() < size / 3 * 2 && !(ahead = file.peek()).empty();) {
      const std::size_t count = (ahead.size() + 1) / 2;
      got += ahead.substr(0, count);
      file.skip(count);
    }
    for (char byte = 0; file.read(&byte, 1) == 1; got += byte) {
      ASSERT_EQ(file.getPosition(), got.size() + 1);
    }
    EXPECT_TRUE(got == bytes);
    EXPECT_TRUE(file.isEndOfFile());
  }
}

class OutputFile : public testing::Test {
 protected:
  const TempFolder folder_;
  const std::string path_ = folder_.write("out", "old");
};

TEST_F(OutputFile, ComesWholeWithACommitAndNotAtAllWithout) {
  for (const std::size_t size : {262143U, 262144U, 262145U, 600000U}) {
    const std::string bytes = makeBytes(size);
    folder_.write("out", "old");
    for (const bool commits : {false, true}) {
      VornOutputFile file(path_);
      file.write(bytes.data(), 9);
      file.write(bytes.data() + 9, size - 10);
      file.put(bytes.back());
      EXPECT_EQ(readFile(path_), "old");
      if (commits) {
        file.commit();
        EXPECT_TRUE(readFile(path_) == bytes) << size;
      }
    }
    EXPECT_EQ(folder_.count(), 1);
  }
}

TEST_F(OutputFile, NeverComesOnceAWriteHasFailed) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  {
    VornOutputFile file(path_);
    file.write(std::string(1000000, 'a').data(), 1000000);
    const rlimit full{1000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    const std::string problem = thrownBy([&] { file.put('b'); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(problem, "VORN_F0002 Cannot write '" + path_ + "': File too large");
    EXPECT_EQ(thrownBy([&] { file.commit(); }), problem) << "room again, but too late";
  }
  EXPECT_EQ(readFile(path_), "old");
  EXPECT_EQ(folder_.count(), 1);
}

}  // namespace
