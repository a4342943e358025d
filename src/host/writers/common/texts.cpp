#include "host/writers/common/texts.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>

#include "host/base/pemo.h"
#include "host/base/unicode.h"

namespace {

// Calls `each(character, bytes)` for every character of UTF-8 text.
template <class Each>
void forEachCharacter(std::string_view utf8, const Each& each) {
  for (std::size_t next = 0; next < utf8.size();) {
    const std::size_t start = next;
    UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // in ICU's macro
    U8_NEXT(utf8, next, utf8.size(), character);
#pragma GCC diagnostic pop
    each(static_cast<char32_t>(character), utf8.substr(start, next - start));
  }
}

bool isLineSeparator(char32_t character) {
  return character == '\r' || character == '\n' || character == 0x85 || character == 0x2028 ||
         character == 0x2029;
}

}  // namespace

std::string_view Utf8Texts::operator()(const VornString& text) {
  const std::string_view utf8 = asUtf8(text.view(), buffer_);
  foreign_ += static_cast<int>(utf8.data() != text.c_str());
  return utf8;
}

void Utf8Texts::tellOf(VornLog& log) const {
  if (foreign_ > 0) {
    PEMO::TEXTS_NOT_UTF8.log(log, {VornString(foreign_)});
  }
}

bool isUnprintable(char32_t character) {
  const auto isIn = [&](char32_t first, char32_t last) { return character >= first && character <= last; };
  return character < 0x20 || isIn(0x7F, 0x9F) || isIn(0x200E, 0x200F) || isIn(0x2028, 0x202E) ||
         isIn(0x2066, 0x2069) || character == 0xFEFF || isIn(0xFFFE, 0xFFFF);
}

std::string toOneLine(std::string_view utf8) {
  std::string line;
  bool isBehindGap = true;
  forEachCharacter(utf8, [&](char32_t character, std::string_view bytes) {
    const bool isGap = isUnprintable(character);
    if (!isGap) {
      line += bytes;
    } else if (!isBehindGap) {
      line += ' ';
    }
    isBehindGap = isGap;
  });
  line.erase(line.find_last_not_of(' ') + 1);
  line.erase(0, line.find_first_not_of(' '));
  return line;
}

std::vector<std::string> toLines(std::string_view utf8) {
  std::vector<std::string> lines(1);
  char32_t previous = 0;
  forEachCharacter(utf8, [&](char32_t character, std::string_view bytes) {
    if (isLineSeparator(character)) {
      if (character != '\n' || previous != '\r') {
        lines.emplace_back();
      }
    } else {
      lines.back() += isUnprintable(character) ? std::string_view(" ") : bytes;
    }
    previous = character;
  });
  if (lines.size() > 1 && lines.back().empty()) {
    lines.pop_back();
  }
  return lines;
}

std::string joinLines(std::string_view utf8) {
  const std::vector<std::string> lines = toLines(utf8);
  std::string joined = lines.front();
  for (std::size_t i = 1; i < lines.size(); ++i) {
    joined.append("\n").append(lines[i]);
  }
  return joined;
}

bool isPlain(std::string_view text) {
  return std::ranges::all_of(text, [](char byte) { return byte >= ' ' && byte < 127; });
}

std::string_view cutUtf8(std::string_view utf8, std::size_t count) {
  if (utf8.size() <= count) {
    return utf8;
  }
  while (count > 0 && (static_cast<unsigned char>(utf8[count]) & 0xC0) == 0x80) {
    --count;
  }
  return utf8.substr(0, count);
}

std::string hashText(std::string_view text) {
  std::uint32_t value = 2166136261U;
  for (const char byte : text) {
    value = (value ^ static_cast<unsigned char>(byte)) * 16777619U;
  }
  std::string hash;
  for (int shift = 28; shift >= 0; shift -= 4) {
    hash += "0123456789abcdef"[(value >> shift) & 0xF];
  }
  return hash;
}

std::string shortenText(std::string_view utf8, std::size_t most) {
  const std::string ending = "\u2026" + hashText(utf8);
  return std::string(cutUtf8(utf8, most - ending.size())) + ending;
}

std::string_view trimBlanks(std::string_view utf8) {
  std::size_t start = utf8.size();
  std::size_t end = 0;
  std::size_t next = 0;
  forEachCharacter(utf8, [&](char32_t character, std::string_view bytes) {
    if (u_isUWhiteSpace(static_cast<UChar32>(character)) == 0) {
      start = std::min(start, next);
      end = next + bytes.size();
    }
    next += bytes.size();
  });
  return end == 0 ? std::string_view() : utf8.substr(start, end - start);
}

std::string UniqueTexts::take(const std::string& text, std::string_view before, std::string_view after) {
  std::string unique = text;
  for (int& number = numbers_[text]; !taken_.insert(unique).second;) {
    unique = text;
    unique.append(before).append(std::to_string(++number + 1)).append(after);
  }
  return unique;
}
