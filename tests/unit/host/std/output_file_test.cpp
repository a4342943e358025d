#include "host/std/output_file.h"

#include <fcntl.h>
#include <sys/resource.h>

#include <csignal>
#include <thread>

#include "../../support.h"

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

void save(const std::string& path, const std::string& bytes) {
  VornOutputFile file(path);
  file.write(bytes.data(), bytes.size());
  file.commit();
}

mode_t permissionsOf(const std::string& path) {
  return static_cast<mode_t>(fs::status(path).permissions()) & 07777;
}

// No file may grow beyond `bytes` while this is there.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit full{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST(VornOutputFile, PutsWholeFilesInPlace) {
  const TempFolder folder;
  for (const std::size_t size : {0U, 1U, 262143U, 262144U, 262145U, 600000U}) {
    SCOPED_TRACE(size);
    const std::string bytes = makeBytes(size);
    const std::string path = folder.write("out", "old");
    VornOutputFile file(path);
    for (std::size_t at = 0; at < size;) {  // growing portions, each with a single byte behind it
      const std::size_t part = std::min(at + 1, size - at);
      file.write(bytes.data() + at, part);
      at += part;
      if (at < size) {
        file.put(bytes[at++]);
      }
    }
    EXPECT_EQ(readBytes(path), "old");
    file.commit();
    EXPECT_TRUE(readBytes(path) == bytes);
    EXPECT_THAT(folder.names(), ElementsAre("out"));
  }
}

TEST(VornOutputFile, LeavesEverythingAsItWasWithoutACommit) {
  const TempFolder folder;
  const std::string path = folder.write("old", "old");
  const std::string bytes = makeBytes(600000);
  for (const char* name : {"old", "new"}) {
    VornOutputFile file(folder.path(name));
    file.write(bytes.data(), bytes.size());
  }
  EXPECT_EQ(readBytes(path), "old");
  EXPECT_THAT(folder.names(), ElementsAre("old"));
}

TEST(VornOutputFile, KeepsThePermissionsOfWhatItReplaces) {
  const TempFolder folder;
  const std::string path = folder.write("old", "old");
  for (const mode_t mode : {0600U, 0640U, 0604U, 0755U, 0400U}) {
    ::chmod(path.c_str(), mode);
    save(path, "new");
    EXPECT_EQ(permissionsOf(path), mode);
  }
  const mode_t mask = ::umask(027);
  save(folder.path("new"), "new");
  ::umask(mask);
  EXPECT_EQ(permissionsOf(folder.path("new")), mode_t{0640});
}

TEST(VornOutputFile, WritesWhereALinkLeads) {
  const TempFolder folder;
  const TempFolder elsewhere;
  elsewhere.write("present", "old");
  for (const char* name : {"present", "missing"}) {
    SCOPED_TRACE(name);
    fs::create_symlink(elsewhere.path(name), folder.path(name));
    save(folder.path(name), "new");
    EXPECT_TRUE(fs::is_symlink(folder.path(name)));
    EXPECT_EQ(readBytes(elsewhere.path(name)), "new");
  }
  EXPECT_THAT(folder.names(), ElementsAre("missing", "present"));
}

TEST(VornOutputFile, SaysWhereItCannotWrite) {
  const TempFolder folder;
  folder.write("file", "old");
  fs::create_directory(folder.path("closed"));
  ::chmod(folder.path("closed").c_str(), 0555);
  const OrdinaryUser user;
  const std::pair<const char*, const char*> cases[] = {{"missing/out", "No such file or directory"},
                                                       {"closed", "Is a directory"},
                                                       {"closed/out", "Permission denied"},
                                                       {"file/out", "Not a directory"}};
  for (const auto& [name, reason] : cases) {
    SCOPED_TRACE(name);
    const std::string path = folder.path(name);
    EXPECT_EQ(thrownBy([&] { VornOutputFile file(path); }),
              "VORN_F0002 Cannot write '" + path + "': " + reason);
  }
  EXPECT_THAT(folder.names(), ElementsAre("closed", "file"));
  EXPECT_TRUE(fs::is_empty(folder.path("closed")));
  EXPECT_EQ(readBytes(folder.path("file")), "old");
}

TEST(VornOutputFile, WritesDevicesAndPipesInPlace) {
  save("/dev/null", "bytes");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_THAT(thrownBy([] { save("/dev/full", "bytes"); }),
              AllOf(StartsWith("VORN_F0002 "), HasSubstr("'/dev/full'")));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));

  const TempFolder folder;
  const std::string pipe = folder.path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string bytes = makeBytes(600000);
  std::string got;
  std::thread reader([&] { got = readBytes(pipe); });
  save(pipe, bytes);
  reader.join();
  EXPECT_TRUE(got == bytes);
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_THAT(folder.names(), ElementsAre("pipe"));
}

TEST(VornOutputFile, NeverPutsAFileInPlaceThatCouldNotBeWritten) {
  const TempFolder folder;
  const std::string path = folder.write("out", "old");
  const std::string bytes = makeBytes(100000);
  {
    VornOutputFile file(path);
    std::string problem;
    {
      const FullDisk full(1000);
      for (int i = 0; i < 10 && problem.empty(); ++i) {
        problem = thrownBy([&] { file.write(bytes.data(), bytes.size()); });
      }
    }
    EXPECT_EQ(problem, "VORN_F0002 Cannot write '" + path + "': File too large");
    EXPECT_THAT(thrownBy([&] { file.commit(); }), StartsWith("VORN_F0002 ")) << "room again, but too late";
  }
  EXPECT_EQ(readBytes(path).substr(0, 10), "old");
  EXPECT_THAT(folder.names(), ElementsAre("out"));
}

}  // namespace
