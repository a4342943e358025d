#include "host/std/date.h"

#include <array>
#include <ctime>

VornString VornDate::getPstTimestamp() const {
  constexpr std::time_t behindUtc = 8 * 3600;
  const std::time_t shifted = seconds_ - behindUtc;
  std::tm parts{};
  ::gmtime_r(&shifted, &parts);
  std::array<char, 64> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S PST", &parts);
  return text.data();
}
