#include "host/bridgelib/sql_tokens.h"

#include <algorithm>

#include "host/std/text.h"

namespace {

using Kind = SqlToken::Kind;

bool isWordByte(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ||
         byte == '_' || byte == '$' || byte == '#' || static_cast<signed char>(byte) < 0;
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
  bool isClear() const { return isClear_; }

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
      const std::string_view comment = cut(end == std::string_view::npos ? rest_.size() : end + 2);
      isClear_ = isClear_ && end != std::string_view::npos && comment.find("/*", 2) == std::string_view::npos;
    } else if (isWordByte(rest_.front())) {
      const auto* end = std::find_if_not(rest_.begin(), rest_.end(), isWordByte);
      add(Kind::word, std::string(cut(static_cast<std::size_t>(end - rest_.begin()))));
    } else if (const char mark = cut(1).front(); kVornBlanks.find(mark) == std::string_view::npos) {
      add(Kind::other, {}, mark);
    }
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
      isClear_ = isClear_ && !rest_.empty();
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
  bool isClear_ = true;
};

}  // namespace

std::vector<SqlToken> splitSql(std::string_view text, bool* isClear) {
  Splitter splitter(text);
  std::vector<SqlToken> tokens = splitter.split();
  if (isClear != nullptr) {
    *isClear = splitter.isClear();
  }
  return tokens;
}
