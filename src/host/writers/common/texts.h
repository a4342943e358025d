// Texts on their way from a model into a file: as UTF-8, in one line or in lines.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/base/output_file.h"
#include "host/base/text.h"

class VornLog;

// Gives a model's texts as UTF-8: a text that is not is read as if it were ISO-8859-1, and counted.
class Utf8Texts {
 public:
  // The text, or what it was converted to: that is valid until the next call.
  std::string_view operator()(const VornString& text);
  // One warning, when there were any.
  void tellOf(VornLog& log) const;

 private:
  std::string buffer_;
  int foreign_ = 0;
};

// Appends texts and numbers to a file.
class TextOutput {
 public:
  explicit TextOutput(VornOutputFile& file) : file_(file) {}

  template <class... Parts>
  void add(const Parts&... parts) {
    (put(parts), ...);
  }

 private:
  void put(std::string_view text) { file_.write(text.data(), text.size()); }
  void put(char byte) { file_.put(byte); }
  void put(std::integral auto number) { put(std::string_view(std::to_string(number))); }

  VornOutputFile& file_;
};

// Whether any tool may take the character for the end of a line, or show it in ways that hide what follows: a
// control character, a line or paragraph separator, a mark that turns the direction of writing, one of the
// two that XML and YAML take for no characters at all.
bool isUnprintable(char32_t character);

// UTF-8 text with each run of unprintable characters as one blank, without blanks at its ends.
std::string toOneLine(std::string_view utf8);

// Splits a UTF-8 text at CR LF, CR, LF and Unicode separators; other unprintable characters become blanks.
// Returns at least one line, and none after a final line end.
std::vector<std::string> toLines(std::string_view utf8);

// The same lines with a line feed between each two.
std::string joinLines(std::string_view utf8);

// Whether the text is one line of printable ASCII characters: most are.
bool isPlain(std::string_view text);

// The first `count` bytes of UTF-8 text, or up to three fewer where a character would be cut.
std::string_view cutUtf8(std::string_view utf8, std::size_t count);

// Eight hexadecimal digits that differ where texts do (FNV-1a): the same on every machine, now and later.
std::string hashText(std::string_view text);

// UTF-8 text of more than `most` bytes as its beginning, an ellipsis and its hash: at most that many bytes.
std::string shortenText(std::string_view utf8, std::size_t most);

// UTF-8 text without blanks of any kind at its ends.
std::string_view trimBlanks(std::string_view utf8);

// Texts that must differ: one that was there before gets the first number, from 2, that makes it differ.
class UniqueTexts {
 public:
  // The text, or with its number: "TEXT" + `before` + "2" + `after`.
  std::string take(const std::string& text, std::string_view before, std::string_view after);

 private:
  std::unordered_set<std::string> taken_;
  std::unordered_map<std::string, int> numbers_;  // of those that wanted the same text
};
