#include "host/writers/json/ordered_pieces.h"

#include <unistd.h>

#include <csignal>
#include <stdexcept>

#include "host/base/output_file.h"
#include "tests/support.h"

namespace {

constexpr std::size_t kPieces = 300;

// Some are many times as long as what a thread buffers.
std::string pieceText(std::size_t piece) {
  return std::string(piece % 100 == 7 ? 3'000'000 : piece * 31 % 4000, static_cast<char>('a' + piece % 26));
}

void writeAll(VornOutputFile& file, std::size_t failing) {
  writeInPieces(file, kPieces, [&](PieceOutput& output) {
    while (const auto piece = output.next()) {
      const std::string text = pieceText(*piece);
      for (std::size_t done = 0; done < text.size(); done += 1000) {
        output.write(text.data() + done, std::min<std::size_t>(1000, text.size() - done));
      }
      if (*piece == failing) {
        throw std::runtime_error("piece " + std::to_string(failing));
      }
    }
  });
}

TEST(OrderedPieces, StandInTheFileInTheirOrder) {
  const TempFolder folder;
  VornOutputFile file(folder.path("out"));
  file.write("head:", 5);
  writeAll(file, kPieces);
  file.put('.');
  file.commit();
  std::string expected = "head:";
  for (std::size_t piece = 0; piece < kPieces; ++piece) {
    expected += pieceText(piece);
  }
  EXPECT_TRUE(readFile(folder.path("out")) == expected + ".");
}

TEST(OrderedPieces, EndTogetherWhereOneFails) {
  for (const std::size_t failing : {std::size_t{0}, std::size_t{7}, kPieces / 2, kPieces - 1}) {
    const TempFolder folder;
    VornOutputFile file(folder.path("out"));
    try {
      writeAll(file, failing);
      FAIL() << "piece " << failing << " has not failed";
    } catch (const std::runtime_error& problem) {
      EXPECT_EQ(problem.what(), "piece " + std::to_string(failing));
    }
  }
}

TEST(OrderedPieces, EndWhereTheFileCannotBeWritten) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const auto previous = std::signal(SIGPIPE, SIG_IGN);
  VornOutputFile file("/proc/self/fd/" + std::to_string(ends[1]));
  EXPECT_THAT(thrownBy([&] { writeAll(file, kPieces); }), testing::HasSubstr("Broken pipe"));
  std::signal(SIGPIPE, previous);
  ::close(ends[1]);
}

}  // namespace
