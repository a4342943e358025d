// Standard output for what commands print through std::cout, so that a write that fails can be explained.
#pragma once

#include <array>
#include <streambuf>

namespace cli {

// Serves std::cout for as long as it lives.
class StandardOutput final : public std::streambuf {
 public:
  StandardOutput();
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;
  ~StandardOutput() override;

  // Writes what is left and reports the first failure of a write as a number of errno, or 0.
  int finish();

 private:
  int_type overflow(int_type byte) override;
  int sync() override;

  std::streambuf* replaced_;
  int error_ = 0;
  std::array<char, 65536> buffer_;
};

}  // namespace cli
