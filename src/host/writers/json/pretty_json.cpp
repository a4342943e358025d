#include "host/writers/json/pretty_json.h"

namespace {

// Writes one byte of a text, escaped where JSON wants it, and returns the place behind it.
char* escape(char byte, char* to) {
  constexpr std::string_view kNamed = "\"\\\b\f\n\r\t";
  constexpr std::string_view kNames = "\"\\bfnrt";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto code = static_cast<unsigned char>(byte);
  if (const std::size_t named = kNamed.find(byte); named != std::string_view::npos) {
    *to++ = '\\';
    *to++ = kNames[named];
  } else if (code < ' ') {
    to = std::copy_n("\\u00", 4, to);
    *to++ = kDigits[code / 16];
    *to++ = kDigits[code % 16];
  } else {
    *to++ = byte;
  }
  return to;
}

}  // namespace

void PrettyJson::close(char bracket) {
  lineStart_.resize(lineStart_.size() - 2);
  if (!isFirst_) {
    output_.write(lineStart_.data() + 1, lineStart_.size() - 1);
  }
  output_.put(bracket);
  isFirst_ = false;
}

void PrettyJson::escapedString(std::string_view text) {
  constexpr std::size_t kMostOfOneByte = 6;
  char* to = beginValue(text.size() * kMostOfOneByte + 2);
  *to++ = '"';
  for (const char byte : text) {
    to = escape(byte, to);
  }
  *to++ = '"';
  output_.advanceTo(to);
}
