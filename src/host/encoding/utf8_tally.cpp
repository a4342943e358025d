#include "host/encoding/utf8_tally.h"

#include <algorithm>

#include "host/base/unicode.h"

namespace {

struct Lead {
  std::uint8_t first, last;  // first bytes of characters
  std::uint8_t missing;      // bytes that follow
  std::uint8_t least, most;  // of the second byte
};

// All that Unicode's table of well-formed byte sequences allows.
constexpr Lead kLeads[] = {
    {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF}, {0xE1, 0xEC, 2, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF}, {0xF0, 0xF0, 3, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F},
};

}  // namespace

void VornUtf8Tally::look(std::string_view bytes) {
  while (!bytes.empty() && !isDecided()) {
    if (missing_ == 0) {
      bytes.remove_prefix(findNonAscii(bytes));
    }
    if (!bytes.empty()) {
      take(static_cast<std::uint8_t>(bytes.front()));
      bytes.remove_prefix(1);
    }
  }
}

void VornUtf8Tally::finish() {
  invalid_ += static_cast<std::size_t>(missing_ > 0);
  missing_ = 0;
}

void VornUtf8Tally::take(std::uint8_t byte) {
  if (missing_ == 0) {
    begin(byte);
  } else if (byte < least_ || byte > most_) {
    ++invalid_;
    missing_ = 0;
    begin(byte);
  } else {
    least_ = 0x80;
    most_ = 0xBF;
    valid_ += static_cast<std::size_t>(--missing_ == 0);
  }
}

void VornUtf8Tally::begin(std::uint8_t byte) {
  if (byte < 0x80) {
    return;
  }
  const auto* const lead = std::ranges::find_if(
      kLeads, [&](const Lead& known) { return byte >= known.first && byte <= known.last; });
  if (lead == std::end(kLeads)) {
    ++invalid_;
    return;
  }
  missing_ = lead->missing;
  least_ = lead->least;
  most_ = lead->most;
}
