#include "host/base/text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

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
    return *this == other;
  }
  return std::ranges::equal(
      view(), other.view(), {}, [](char byte) { return toUpperAscii(byte); },
      [](char byte) { return toUpperAscii(byte); });
}

VornString VornString::trim() const {
  const std::size_t first = view().find_first_not_of(kVornBlanks);
  if (first == std::string_view::npos) {
    return {};
  }
  const std::size_t last = view().find_last_not_of(kVornBlanks);
  return VornString(view().substr(first, last - first + 1));
}

void VornString::keepOutside(std::string_view first, std::string_view second) {
  const std::size_t length = first.size() + second.size();
  if (length > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("a text of 4 GiB or more");
  }
  char* const text = new char[length + 1];
  first.copy(text, first.size());
  second.copy(text + first.size(), second.size());
  text[length] = '\0';
  const auto shortLength = static_cast<std::uint32_t>(length);
  std::memcpy(bytes_, &text, sizeof text);
  std::memcpy(bytes_ + sizeof text, &shortLength, sizeof shortLength);
  bytes_[kMostInside] = static_cast<char>(kOutside);
}

VornString operator+(const VornString& first, const VornString& second) {
  VornString sum;
  const std::size_t length = first.length() + second.length();
  if (length > VornString::kMostInside) {
    sum.keepOutside(first.view(), second.view());
  } else {
    first.view().copy(sum.bytes_, first.length());
    second.view().copy(sum.bytes_ + first.length(), second.length());
    sum.bytes_[VornString::kMostInside] = static_cast<char>(VornString::kMostInside - length);
  }
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
