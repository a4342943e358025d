// Standard output for what commands print through std::cout, so that a write that fails can be explained.
#pragma once

#include <array>
#include <streambuf>
#include <system_error>

namespace cli {

// Serves std::cout for as long as it lives.
class StandardOutput final : public std::streambuf {
 public:
  StandardOutput();
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;
  ~StandardOutput() override;

  // Writes what is left and returns the first failure of a write, if there was one.
  std::error_code finish();

 private:
  int_type overflow(int_type byte) override;
  int sync() override;

  std::streambuf* replaced_;
  std::error_code error_;
  std::array<char, 65536> buffer_;
};

}  // namespace cli
