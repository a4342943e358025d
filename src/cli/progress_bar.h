// The bar that shows on a terminal how far a long command has come.
#pragma once

#include <chrono>
#include <cstddef>

namespace cli {

// One line on standard error, drawn over itself; it is there only where that is a terminal and once the
// command has taken half a second.
class ProgressBar {
 public:
  // A bar that is not wanted never shows.
  explicit ProgressBar(bool wanted);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar() { clear(); }

  // `done` of `total` (0: not known). `what` is a literal.
  void update(const char* what, std::size_t done, std::size_t total);
  // Makes room for a line of something else; the next update draws the bar again.
  void clear();

 private:
  using Clock = std::chrono::steady_clock;

  bool onTerminal_;
  bool drawn_ = false;
  const char* what_ = nullptr;
  Clock::time_point next_ = Clock::now() + std::chrono::milliseconds(500);
};

}  // namespace cli
