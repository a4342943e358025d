// Bytes and records in readable form.
#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

// The bytes that `notation` spells. A control byte is written by its name (<STX> <ETX> <TAB> <LF> <CR> <FS>
// <SP> <NUL>), any byte by two hexadecimal digits (<E9>), a repeated one with its count (<A*16383>, <E9*3>).
// What stands outside of <> is meant as it is. Throws std::invalid_argument for a token that is none of
// these.
std::string toBytes(std::string_view notation);

// Puts in the repeated bytes and leaves everything else of the text alone, other tokens too.
std::string expandRepeats(std::string_view text);

// The record of "1=S | 4=Customer": fields by their numbers, which ascend; those in between are empty. Blanks
// around a value do not count. Throws std::invalid_argument.
std::string toRecord(std::string_view fields);

inline std::string_view trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Cuts off what stands before the next `separator`, which is dropped, or everything when there is none.
inline std::string_view takeUpTo(std::string_view& text, char separator) {
  const std::size_t end = text.find(separator);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return taken;
}

// The number that the whole text is.
inline std::optional<int> toNumber(std::string_view text, int base = 10) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}
