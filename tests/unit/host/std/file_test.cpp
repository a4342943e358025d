// Files as they are read and written.
#include "host/std/file.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "../../support.h"
#include "host/std/output_file.h"

namespace fs = std::filesystem;

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
  static std::string readBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool isAlone() const { return std::distance(fs::directory_iterator(folder_.path()), {}) == 1; }
  static void save(const std::string& path) {
    VornOutputFile file(path);
    file.write("new", 3);
    file.commit();
  }

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
      EXPECT_EQ(readBytes(path_), "old");
      if (commits) {
        file.commit();
        EXPECT_TRUE(readBytes(path_) == bytes) << size;
      }
    }
    EXPECT_TRUE(isAlone());
  }
}

TEST_F(OutputFile, KeepsThePermissionsOfWhatItReplaces) {
  fs::permissions(path_, fs::perms{0604});
  save(path_);
  EXPECT_EQ(fs::status(path_).permissions(), fs::perms{0604});
  const mode_t mask = ::umask(027);
  save(folder_.path("new"));
  ::umask(mask);
  EXPECT_EQ(fs::status(folder_.path("new")).permissions(), fs::perms{0640});
}

TEST_F(OutputFile, IsWrittenWhereALinkLeads) {
  fs::create_symlink("missing", folder_.path("link"));
  save(folder_.path("link"));
  EXPECT_TRUE(fs::is_symlink(folder_.path("link")));
  EXPECT_EQ(readBytes(folder_.path("missing")), "new");
}

TEST_F(OutputFile, NeverComesOnceAWriteHasFailed) {
  EXPECT_THAT(thrownBy([] { save("/dev/full"); }), testing::StartsWith("VORN_F0002 "));
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  {
    VornOutputFile file(path_);
    file.fill('a', 1000000);
    const rlimit full{1000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    const std::string problem = thrownBy([&] { file.put('b'); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(problem, "VORN_F0002 Cannot write '" + path_ + "': File too large");
    EXPECT_EQ(thrownBy([&] { file.commit(); }), problem) << "room again, but too late";
  }
  EXPECT_EQ(readBytes(path_), "old");
  EXPECT_TRUE(isAlone());
}

TEST_F(OutputFile, LeavesNothingOfAProcessThatIsKilled) {
  const auto die = [&] {
    VornOutputFile file(path_);
    file.fill('a', 1000000);
    std::raise(SIGKILL);
  };
  EXPECT_EXIT(die(), testing::KilledBySignal(SIGKILL), "");
  EXPECT_EQ(readBytes(path_), "old");
  EXPECT_TRUE(isAlone());
}

}  // namespace
