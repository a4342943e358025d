#include "host/base/unicode.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <cstdint>

namespace {

// Returns the code point at `position` and moves `position` past it. Returns a negative number, and moves on,
// if it is invalid.
UChar32 nextCodePoint(std::string_view text, std::size_t& position) {
  UChar32 point = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // in ICU's macro
  U8_NEXT(text, position, text.size(), point);
#pragma GCC diagnostic pop
  return point;
}

void appendUtf8(std::string& text, UChar32 point) {
  icu::UnicodeString(point).toUTF8String(text);
}

// What a terminal could obey in place of showing it: control characters, format characters such as those
// that turn the direction of writing, separators of lines and paragraphs.
bool isCommand(UChar32 point) {
  constexpr std::uint32_t kCommands = U_GC_CC_MASK | U_GC_CF_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
  return point < 0x7F ? point < 0x20 : (U_GET_GC_MASK(point) & kCommands) != 0;
}

}  // namespace

std::size_t findNonAscii(std::string_view text) {
  // Parts of a fixed size first, of which compilers make vector instructions.
  constexpr std::size_t kPart = 64;
  std::size_t place = 0;
  for (; place + kPart <= text.size(); place += kPart) {
    std::uint8_t bits = 0;
    for (std::size_t i = 0; i < kPart; ++i) {
      bits |= static_cast<std::uint8_t>(text[place + i]);
    }
    if (bits >= 0x80) {
      break;
    }
  }
  while (place < text.size() && static_cast<signed char>(text[place]) >= 0) {
    ++place;
  }
  return place;
}

bool isAscii(std::string_view text) {
  return findNonAscii(text) == text.size();
}

bool isUtf8(std::string_view text) {
  if (isAscii(text)) {
    return true;
  }
  for (std::size_t position = 0; position < text.size();) {
    if (nextCodePoint(text, position) < 0) {
      return false;
    }
  }
  return true;
}

std::string foldCase(std::string_view name) {
  std::string folded;
  if (!isAscii(name) && isUtf8(name)) {
    icu::UnicodeString::fromUTF8({name.data(), static_cast<std::int32_t>(name.size())})
        .foldCase()
        .toUTF8String(folded);
  } else {
    folded = name;
    for (char& byte : folded) {
      byte = static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte);
    }
  }
  return folded;
}

std::string latin1ToUtf8(std::string_view text) {
  std::string converted;
  converted.reserve(text.size() * 2);
  for (const char byte : text) {
    appendUtf8(converted, static_cast<std::uint8_t>(byte));
  }
  return converted;
}

std::string_view asUtf8(std::string_view text, std::string& buffer) {
  if (isUtf8(text)) {
    return text;
  }
  buffer = latin1ToUtf8(text);
  return buffer;
}

std::string toPrintableLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = position;
    UChar32 point = nextCodePoint(text, position);
    if (point < 0) {
      point = static_cast<std::uint8_t>(text[start]);
      position = start + 1;
    }
    appendUtf8(line, isCommand(point) ? ' ' : point);
  }
  return line;
}

std::string escapeCommands(std::string_view utf8) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string escaped;
  escaped.reserve(utf8.size());
  for (std::size_t position = 0; position < utf8.size();) {
    const std::size_t start = position;
    const UChar32 point = nextCodePoint(utf8, position);
    if (point < ' ' || !isCommand(point)) {
      escaped += utf8.substr(start, position - start);
      continue;
    }
    const icu::UnicodeString units(point);
    for (std::int32_t i = 0; i < units.length(); ++i) {
      const char16_t unit = units[i];
      escaped += "\\u";
      for (int shift = 12; shift >= 0; shift -= 4) {
        escaped += kDigits[(unit >> shift) & 0xF];
      }
    }
  }
  return escaped;
}
