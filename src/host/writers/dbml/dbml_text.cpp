#include "host/writers/dbml/dbml_text.h"

#include <algorithm>

namespace {

// A type that DBML reads without quotes: a word, and numbers in parentheses.
bool isPlainType(std::string_view type) {
  const auto isWordByte = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  const auto isSizeByte = [](char c) { return (c >= '0' && c <= '9') || c == ','; };
  const std::size_t open = type.find('(');
  if (!std::ranges::all_of(type.substr(0, open), isWordByte) || type.empty() || isSizeByte(type.front())) {
    return false;
  }
  return open == std::string_view::npos ||
         (type.back() == ')' &&
          std::ranges::all_of(type.substr(open + 1, type.size() - open - 2), isSizeByte));
}

}  // namespace

void DbmlText::addName(std::string_view name) {
  out_.add('"');
  addEscaped(name, '"');
  out_.add('"');
}

void DbmlText::addString(std::string_view text) {
  out_.add('\'');
  addEscaped(text, '\'');
  out_.add('\'');
}

void DbmlText::addLines(const std::vector<std::string>& lines) {
  if (lines.size() == 1) {
    addString(lines.front());
    return;
  }
  out_.add("'''");
  for (const std::string& line : lines) {
    out_.add(line.empty() ? "\n" : "\n  ");
    addEscaped(line, '\'');
  }
  out_.add("'''");
}

void DbmlText::addType(std::string_view type) {
  if (isPlainType(type)) {
    out_.add(type);
  } else {
    addName(type);
  }
}

void DbmlText::addEscaped(std::string_view text, char quote) {
  const std::string_view special = quote == '"' ? "\\\"\n" : "\\'\n";
  for (std::size_t start = 0;;) {
    const std::size_t end = std::min(text.find_first_of(special, start), text.size());
    out_.add(text.substr(start, end - start));
    if (end == text.size()) {
      return;
    }
    out_.add('\\', text[end] == '\n' ? 'n' : text[end]);
    start = end + 1;
  }
}
