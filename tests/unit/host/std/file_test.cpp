#include "host/std/file.h"

#include <cerrno>

#include "../../support.h"

namespace {

TEST(VornFile, GivesEveryByteAndThenTheEnd) {
  const TempFolder folder;
  for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 200000U}) {
    SCOPED_TRACE(size);
    const std::string bytes = makeBytes(size);
    VornFile file(VornString(folder.write("bytes", bytes)));
    ASSERT_TRUE(file.open(VornFile::kRead | VornFile::kBinary));
    std::string got;
    {
      VornFile::ByteReader reader(file);
      for (char byte = 0; got.size() < size / 2 && reader.read(byte); got += byte) {
      }
    }
    for (char byte = 0; file.read(&byte, 1) == 1; got += byte) {
      ASSERT_FALSE(file.isEndOfFile());
      ASSERT_EQ(file.getPosition(), got.size() + 1);
    }
    EXPECT_TRUE(got == bytes);
    EXPECT_TRUE(file.isEndOfFile());
    EXPECT_EQ(file.getPosition(), size);
  }
}

TEST(VornFile, ReadsPortionsAcrossItsBuffer) {
  const TempFolder folder;
  const std::string bytes = makeBytes(200000);
  VornFile file(VornString(folder.write("bytes", bytes)));
  ASSERT_TRUE(file.open(VornFile::kRead));
  std::string got;
  for (const std::size_t count : {1U, 65530U, 0U, 10U, 70000U, 64459U}) {
    std::string portion(count, '\0');
    EXPECT_EQ(file.read(portion.data(), count), count);
    got += portion;
  }
  EXPECT_TRUE(got == bytes);
  EXPECT_FALSE(file.isEndOfFile());
  char rest[2];
  EXPECT_EQ(file.read(rest, 2), 0U);
  EXPECT_TRUE(file.isEndOfFile());
}

TEST(VornFile, StartsAnewWhenItIsOpenedAgain) {
  const TempFolder folder;
  VornFile file(VornString(folder.write("first", "a")));
  char byte = 0;
  EXPECT_EQ(file.read(&byte, 1), 0U) << "read before it was opened";
  ASSERT_TRUE(file.open(VornFile::kRead));
  file = VornString(folder.write("second", "b"));
  EXPECT_EQ(file.read(&byte, 1), 1U);
  EXPECT_EQ(byte, 'a') << "a new path closes nothing";
  EXPECT_EQ(file.read(&byte, 1), 0U);
  ASSERT_TRUE(file.open(VornFile::kRead));
  EXPECT_FALSE(file.isEndOfFile());
  EXPECT_EQ(file.getPosition(), 0U);
  EXPECT_EQ(file.read(&byte, 1), 1U);
  EXPECT_EQ(byte, 'b');
  EXPECT_TRUE(file.close());
  EXPECT_FALSE(file.close());
  EXPECT_EQ(file.read(&byte, 1), 0U) << "read from a closed file";
}

TEST(VornFile, CannotOpenWhatCannotBeRead) {
  const TempFolder folder;
  ::chmod(folder.write("secret", "a").c_str(), 0);
  const OrdinaryUser user;
  const std::pair<std::string, int> cases[] = {{folder.path("missing"), ENOENT},
                                               {folder.path(), EISDIR},
                                               {folder.path("secret"), EACCES},
                                               {"", ENOENT}};
  for (const auto& [path, reason] : cases) {
    SCOPED_TRACE(path);
    VornFile file{VornString(path.c_str())};
    errno = 0;
    EXPECT_FALSE(file.open(VornFile::kRead));
    EXPECT_EQ(errno, reason);
    EXPECT_FALSE(file.close());
  }
}

TEST(VornFile, EndsWhereReadingFails) {
  VornFile file("/proc/self/mem");  // nothing is mapped at address 0
  ASSERT_TRUE(file.open(VornFile::kRead));
  char byte = 0;
  EXPECT_EQ(file.read(&byte, 1), 0U);
  EXPECT_TRUE(file.isEndOfFile());
}

}  // namespace
