#include "host/base/date.h"

#include <array>
#include <ctime>

VornString VornDate::getPstTimestamp() const {
  constexpr std::time_t behindUtc = std::time_t{8} * 3600;
  const std::time_t shifted = seconds_ - behindUtc;
  std::tm parts{};
  ::gmtime_r(&shifted, &parts);
  std::array<char, 64> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S PST", &parts);
  return VornString(std::string_view(text.data(), length));
}
