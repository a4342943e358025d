#include "host/std/text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

bool isDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

char toUpperAscii(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

}  // namespace

bool VornString::equals(const VornString& other, bool letterCaseCounts) const {
  if (letterCaseCounts) {
    return text_ == other.text_;
  }
  return std::equal(text_.begin(), text_.end(), other.text_.begin(), other.text_.end(),
                    [](char a, char b) { return toUpperAscii(a) == toUpperAscii(b); });
}

VornString VornString::trim() const {
  const std::size_t first = text_.find_first_not_of(kVornBlanks);
  if (first == std::string::npos) {
    return {};
  }
  const std::size_t last = text_.find_last_not_of(kVornBlanks);
  return VornString(view().substr(first, last - first + 1));
}

VornString operator+(const VornString& first, const VornString& second) {
  VornString sum = first;
  sum += second;
  return sum;
}

std::string toUpperAscii(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char byte) { return toUpperAscii(byte); });
  return upper;
}

std::optional<std::int32_t> parseInteger(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kVornBlanks), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  if (text.empty() || !isDigit(text.front())) {
    return std::nullopt;
  }
  constexpr std::int64_t lowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t highest = std::numeric_limits<std::int32_t>::max();
  std::int64_t magnitude = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), magnitude).ec ==
      std::errc::result_out_of_range) {
    magnitude = -lowest;
  }
  return static_cast<std::int32_t>(std::clamp(negative ? -magnitude : magnitude, lowest, highest));
}
