// PrettyJson: JSON text, one member or element a line, indented by two blanks a level.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "host/base/output.h"

class PrettyJson {
 public:
  // What is written goes into `output`, which must stay.
  explicit PrettyJson(VornOutput& output) : output_(output) {}
  // Continues at the position of `other`, in another output.
  PrettyJson(const PrettyJson& other, VornOutput& output)
      : output_(output), lineStart_(other.lineStart_), isFirst_(other.isFirst_), isInLine_(other.isInLine_) {}

  void startObject() { open('{'); }
  void endObject() { close('}'); }
  void startArray() { open('['); }
  void endArray() { close(']'); }

  // The name of the value that follows. It is plain: see isPlain.
  void key(std::string_view name) {
    char* to = beginItem(name.size() + 4);
    *to++ = '"';
    to = std::copy(name.begin(), name.end(), to);
    to = std::copy_n("\": ", 3, to);
    output_.advanceTo(to);
    isInLine_ = true;
  }

  // A text in UTF-8.
  void string(std::string_view text) {
    if (isPlain(text)) {
      plainString(text);
    } else {
      escapedString(text);
    }
  }
  // The same where it is known to be plain.
  void plainString(std::string_view text) {
    char* to = beginValue(text.size() + 2);
    *to++ = '"';
    to = std::copy(text.begin(), text.end(), to);
    *to++ = '"';
    output_.advanceTo(to);
  }
  void number(std::int32_t amount) {
    char digits[12];
    word({digits, std::to_chars(digits, digits + sizeof digits, amount).ptr});
  }
  void flag(bool isSet) { word(isSet ? std::string_view("true") : std::string_view("false")); }
  void null() { word("null"); }

  // Whether a text is ASCII that JSON does not escape.
  static bool isPlain(std::string_view text) {
    return std::ranges::all_of(
        text, [](char byte) { return static_cast<signed char>(byte) >= ' ' && byte != '"' && byte != '\\'; });
  }

 private:
  // Both reserve `count` bytes after what they write and return their address.
  char* beginItem(std::size_t count) {
    const auto start = lineStart_.begin() + static_cast<std::ptrdiff_t>(std::exchange(isFirst_, false));
    return std::copy(start, lineStart_.end(), output_.room(lineStart_.size() + count));
  }
  char* beginValue(std::size_t count) {
    return std::exchange(isInLine_, false) ? output_.room(count) : beginItem(count);
  }

  void word(std::string_view text) {
    output_.advanceTo(std::copy(text.begin(), text.end(), beginValue(text.size())));
  }
  void open(char bracket) {
    word({&bracket, 1});
    lineStart_ += "  ";
    isFirst_ = true;
  }
  void close(char bracket);
  void escapedString(std::string_view text);

  VornOutput& output_;
  std::string lineStart_ = ",\n";  // of each item of the present object or array; the first has no comma
  bool isFirst_ = true;            // the object or array is empty so far
  bool isInLine_ = true;           // the next value continues the line: at the start, and after a key
};
