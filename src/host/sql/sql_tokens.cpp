#include "host/sql/sql_tokens.h"

#include <algorithm>

#include "host/base/text.h"

namespace {

using Kind = SqlToken::Kind;

bool isWordByte(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ||
         byte == '_' || byte == '$' || byte == '#' || static_cast<signed char>(byte) < 0;
}

// The bytes of the UTF-8 character in front of the text, which is not empty.
std::size_t lengthOfCharacter(std::string_view text) {
  const auto isContinuation = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  const auto* end = std::find_if_not(text.begin() + 1, text.end(), isContinuation);
  return static_cast<std::size_t>(end - text.begin());
}

// Cuts tokens off the front of a text.
class Splitter {
 public:
  explicit Splitter(std::string_view text) : rest_(text) {}

  std::vector<SqlToken> split() {
    while (!rest_.empty()) {
      cutOne();
    }
    return std::move(tokens_);
  }

 private:
  void cutOne() {
    switch (rest_.front()) {
      case '\'':
        cutQuoted('\'');
        return;
      case '"':
        add(Kind::quotedName, cutQuoted('"'), '"');
        return;
      case '`':
        add(Kind::quotedName, cutQuoted('`'), '`');
        return;
      case '[':
        add(Kind::quotedName, cutQuoted(']'), '[');
        return;
      case '(':
        cutMark(Kind::open);
        return;
      case ')':
        cutMark(Kind::close);
        return;
      case ',':
        cutMark(Kind::comma);
        return;
      case '.':
        cutMark(Kind::dot);
        return;
      default:
        cutOther();
    }
  }

  void cutOther() {
    if (rest_.starts_with("--")) {
      cut(std::min(rest_.find_first_of("\n\r"), rest_.size()));
    } else if (rest_.starts_with("/*")) {
      const std::size_t end = rest_.find("*/", 2);
      cut(end == std::string_view::npos ? rest_.size() : end + 2);
    } else if (isWordByte(rest_.front())) {
      cutWord();
    } else if (const char mark = cut(1).front(); kVornBlanks.find(mark) == std::string_view::npos) {
      add(Kind::other, {}, mark);
    }
  }

  void cutWord() {
    const auto* end = std::find_if_not(rest_.begin(), rest_.end(), isWordByte);
    const std::string_view word = cut(static_cast<std::size_t>(end - rest_.begin()));
    const bool isLiteralPrefix =
        word.size() <= 2 && (toUpperAscii(word) == "Q" || toUpperAscii(word) == "NQ");
    if (isLiteralPrefix && rest_.size() > 1 && rest_.front() == '\'' && rest_[1] != '\'') {
      cutDelimitedLiteral();
    } else {
      add(Kind::word, std::string(word));
    }
  }

  // A literal between delimiters that it names itself: '[it's]' or '!it's!'. Where it holds a quote it ends
  // elsewhere in the dialects that do not know it.
  void cutDelimitedLiteral() {
    constexpr std::string_view kOpening = "[({<";
    constexpr std::string_view kClosing = "])}>";
    cut(1);
    const std::size_t length = lengthOfCharacter(rest_);
    std::string end(cut(length));
    if (const std::size_t pair = kOpening.find(end); pair != std::string_view::npos) {
      end = kClosing[pair];
    }
    end += '\'';
    const std::size_t place = rest_.find(end);
    cut(place == std::string_view::npos ? rest_.size() : place);
    cut(std::min(end.size(), rest_.size()));
  }

  void cutMark(Kind kind) {
    cut(1);
    add(kind, {});
  }

  // What stands between the quote in front and the one that closes it.
  std::string cutQuoted(char closing) {
    cut(1);
    std::string text;
    while (true) {
      text += cut(std::min(rest_.find(closing), rest_.size()));
      cut(std::min<std::size_t>(1, rest_.size()));
      if (!rest_.starts_with(closing)) {
        return text;
      }
      text += cut(1);
    }
  }

  std::string_view cut(std::size_t count) {
    const std::string_view front = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return front;
  }

  void add(Kind kind, std::string text, char mark = 0) { tokens_.push_back({kind, std::move(text), mark}); }

  std::string_view rest_;
  std::vector<SqlToken> tokens_;
};

}  // namespace

std::vector<SqlToken> splitSql(std::string_view text) {
  return Splitter(text).split();
}
