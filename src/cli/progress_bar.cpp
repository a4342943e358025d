#include "cli/progress_bar.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

namespace cli {

namespace {

constexpr const char* kEraseLine = "\r\x1b[K";

// "512", "3.4M"
std::string shorten(std::size_t number) {
  if (number < 1'000'000) {
    return std::to_string(number);
  }
  std::ostringstream text;
  text << std::fixed << std::setprecision(1) << static_cast<double>(number) / 1e6 << 'M';
  return text.str();
}

std::size_t widthOfTerminal() {
  winsize size{};
  return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

}  // namespace

ProgressBar::ProgressBar(bool wanted) : onTerminal_(wanted && ::isatty(STDERR_FILENO) == 1) {
}

void ProgressBar::update(const char* what, std::size_t done, std::size_t total) {
  if (!onTerminal_ || (Clock::now() < next_ && (!drawn_ || what == what_))) {
    return;
  }
  std::string line(what);
  if (total > 0) {
    done = std::min(done, total);
    constexpr std::size_t kWidth = 30;
    const std::size_t filled = kWidth * done / total;
    line.resize(std::max(line.size(), std::size_t{11}), ' ');
    line.append("[").append(filled, '#').append(kWidth - filled, '-').append("] ");
    line.append(std::to_string(100 * done / total)).append(" %  ");
    line.append(shorten(done)).append(" of ").append(shorten(total));
  } else if (done > 0) {
    line.append(" ").append(shorten(done));
  }
  line.resize(std::min(line.size(), widthOfTerminal() - 1));
  std::cerr << kEraseLine << line << std::flush;
  drawn_ = true;
  what_ = what;
  next_ = Clock::now() + std::chrono::milliseconds(100);
}

void ProgressBar::clear() {
  if (drawn_) {
    std::cerr << kEraseLine << std::flush;
    drawn_ = false;
  }
}

}  // namespace cli
