#include "host/writers/sql/statement_reading.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>

#include "host/base/text.h"
#include "host/writers/common/dialects.h"
#include "host/writers/common/texts.h"
#include "host/writers/sql/client_rules.h"

namespace {

using Kind = StatementToken::Kind;

bool isDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

bool isAsciiLetter(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte == '_';
}

// The bytes of the letter, mark or digit beyond ASCII that `text` begins with; 0: it begins with something
// else, which a database may take for a blank or a quote.
std::size_t measureForeignLetter(std::string_view text) {
  if (text.empty() || static_cast<signed char>(text.front()) >= 0) {
    return 0;
  }
  std::size_t size = 0;
  UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // in ICU's macro
  U8_NEXT(text, size, text.size(), character);
#pragma GCC diagnostic pop
  return character >= 0 && u_isalnum(character) != 0 ? size : 0;
}

bool isListed(std::string_view upperWord, std::string_view words) {
  return words.find(" " + std::string(upperWord) + " ") != std::string_view::npos;
}

// What may touch a quote from the outside: nothing that could be a part of the token.
constexpr std::string_view kBeforeQuote = " \n(,=<>|+-*/";
constexpr std::string_view kAfterQuote = " \n),=<>|+-*/:";
constexpr std::string_view kOperators = "*-/=<>+%";
constexpr std::string_view kLineStarts = "'\"`[(),=<>+-*|%";

class StatementReader {
 public:
  StatementReader(std::string_view statement, const SqlDialect& dialect)
      : text_(statement), dialect_(dialect), rules_(getClientRules(dialect)) {}

  StatementReading read() {
    checkLines();
    while (reading_.obstacle.empty() && place_ < text_.size()) {
      readToken();
    }
    return std::move(reading_);
  }

 private:
  void refuse(std::string why) {
    if (reading_.obstacle.empty()) {
      reading_.obstacle = std::move(why);
    }
  }

  char at(std::size_t place) const { return place < text_.size() ? text_[place] : '\n'; }

  void add(Kind kind, std::string text, std::size_t size) {
    reading_.tokens.push_back({kind, std::move(text), place_ != end_});
    place_ += size;
    end_ = place_;
  }

  // Whatever the lines are to the database, the client looks at them first.
  void checkLines() {
    const std::string_view mark = dialect_.variableMark;
    if (!mark.empty() && text_.find(mark) != std::string_view::npos) {
      refuse(quoteForReason("$") + " and a parenthesis begin a variable of " + std::string(rules_.client));
    }
    for (std::string_view rest = text_; !rest.empty();) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      rest.remove_prefix(std::min(line.size() + 1, rest.size()));
      checkLine(line);
    }
  }

  void checkLine(std::string_view line) {
    if (line.size() > rules_.lineLength) {
      refuse("it has a line that is too long for " + std::string(rules_.client));
    }
    const std::size_t last = line.find_last_not_of(' ');
    if (last == std::string_view::npos) {
      return;
    }
    if (rules_.lineEnds.find(line[last]) != std::string_view::npos) {
      refuse("a line ends in " + quoteForReason(line.substr(last, 1)) + ", which " +
             std::string(rules_.client) + " takes for itself");
    }
    const std::string_view start = line.substr(line.find_first_not_of(' '));
    const bool isComment = start.starts_with("/* ") || start == "/*";
    if (!isAsciiLetter(start[0]) && !isDigit(start[0]) && static_cast<signed char>(start[0]) >= 0 &&
        kLineStarts.find(start[0]) == std::string_view::npos && !isComment) {
      refuse("a line begins with " + quoteForReason(start.substr(0, 1)) +
             ", which some client takes for itself");
    }
    const auto* end = std::ranges::find_if_not(start, isAsciiLetter);
    const std::string_view word(start.data(), static_cast<std::size_t>(end - start.begin()));
    if (isListed(toUpperAscii(word), rules_.words)) {
      refuse("a line begins with " + quoteForReason(word) + ", a command of " + std::string(rules_.client));
    }
  }

  void readToken() {
    const char byte = text_[place_];
    const char next = at(place_ + 1);
    if (byte == ' ' || byte == '\n') {
      ++place_;
    } else if (byte == '\'') {
      readQuoted(Kind::literal, '\'');
    } else if (byte == dialect_.openQuote) {
      readQuoted(Kind::quotedName, dialect_.closeQuote);
    } else if (byte == '"' || byte == '`' || byte == '[') {
      refuse("its names are quoted as in another dialect: " + quoteForReason(text_.substr(place_, 1)));
    } else if ((byte == '-' && next == '-') || (byte == '/' && next == '*')) {
      readComment(byte == '-');
    } else if (byte == '(') {
      add(Kind::open, "(", 1);
    } else if (byte == ')') {
      add(Kind::close, ")", 1);
    } else if (byte == ',') {
      add(Kind::comma, ",", 1);
    } else if (isDigit(byte) || (byte == '.' && isDigit(next) && !isAfterName())) {
      readNumber();
    } else if (byte == '.') {
      add(Kind::dot, ".", 1);
    } else if (isAsciiLetter(byte) || measureForeignLetter(text_.substr(place_)) > 0) {
      readWord();
    } else {
      readOperator(byte, next);
    }
  }

  bool isAfterName() const {
    return !reading_.tokens.empty() && place_ == end_ && reading_.tokens.back().isName();
  }

  void readOperator(char byte, char next) {
    const bool isPair =
        (byte == '|' && next == '|') || (byte == '!' && next == '=') ||
        (byte == ':' && next == ':' && at(place_ + 2) != ':' && dialect_.id == DialectId::postgresql);
    if (isPair) {
      add(Kind::mark, std::string(text_.substr(place_, 2)), 2);
    } else if (byte == '*' && next == '/') {
      refuse("a comment ends that did not begin");
    } else if (kOperators.find(byte) != std::string_view::npos) {
      add(Kind::mark, std::string(1, byte), 1);
    } else if (byte == ';') {
      refuse("it has ';' outside of literals, which ends a statement");
    } else {
      const auto size = static_cast<std::size_t>(std::max(1, U8_COUNT_TRAIL_BYTES(byte) + 1));
      refuse("it has " + quoteForReason(text_.substr(place_, size)) + " outside of literals and names");
    }
  }

  void readNumber() {
    std::size_t end = place_;
    while (isDigit(at(end)) || at(end) == '.') {
      ++end;
    }
    if (at(end) == 'e' || at(end) == 'E') {
      ++end;
      end += static_cast<std::size_t>(at(end) == '+' || at(end) == '-');
      while (isDigit(at(end))) {
        ++end;
      }
      end -= static_cast<std::size_t>(!isDigit(text_[end - 1]));
    }
    add(Kind::number, std::string(text_.substr(place_, end - place_)), end - place_);
    refuseTouchingWord(end);
  }

  // A word that goes on from a number or quote is a token in one database and two in another.
  void refuseTouchingWord(std::size_t end) {
    if (isAsciiLetter(at(end)) || measureForeignLetter(text_.substr(std::min(end, text_.size()))) > 0) {
      refuse("a word follows " + quoteForReason(reading_.tokens.back().text) + " without a blank");
    }
  }

  void readWord() {
    std::size_t end = place_;
    while (end < text_.size()) {
      const char byte = text_[end];
      const std::size_t size =
          isAsciiLetter(byte) || isDigit(byte) || rules_.wordMarks.find(byte) != std::string_view::npos
              ? 1
              : measureForeignLetter(text_.substr(end));
      if (size == 0) {
        break;
      }
      end += size;
    }
    const std::string word(text_.substr(place_, end - place_));
    if (!rules_.wordEnds.empty() && toUpperAscii(word).ends_with(rules_.wordEnds)) {
      refuse(quoteForReason(word) + " is a command of " + std::string(rules_.client));
    }
    if (rules_.hasNationalLiterals && (word == "N" || word == "n") && at(end) == '\'' && !isGluedBefore()) {
      place_ = end_ = end;
      readQuoted(Kind::literal, '\'', true);
      return;
    }
    add(Kind::word, word, end - place_);
  }

  bool isGluedBefore() const {
    return place_ > 0 && kBeforeQuote.find(text_[place_ - 1]) == std::string_view::npos;
  }

  void readQuoted(Kind kind, char closing, bool isNational = false) {
    const bool isName = kind == Kind::quotedName;
    const bool isAfterDot = isName && place_ > 0 && text_[place_ - 1] == '.';
    if (isGluedBefore() && !isAfterDot && !isNational) {
      refuse("a quote follows " + quoteForReason(findTouching()) + " without a blank");
      return;
    }
    std::string text;
    std::size_t end = place_ + 1;
    for (;; ++end) {
      const char byte = at(end);
      if (byte == '\n') {
        refuse(isName ? "a quoted name is not closed on its line" : "a literal is not closed on its line");
        return;
      }
      if (byte == '\\' && rules_.escapesBackslash) {
        refuse("it has a backslash, which may escape what follows");
        return;
      }
      if (byte == closing) {
        if (at(end + 1) != closing) {
          break;
        }
        ++end;
      }
      text += byte;
    }
    add(kind, isName ? text : "", end + 1 - place_);
    const char after = at(place_);
    if (kAfterQuote.find(after) == std::string_view::npos && !(isName && after == '.')) {
      const auto size = static_cast<std::size_t>(std::max(1, U8_COUNT_TRAIL_BYTES(after) + 1));
      refuse(quoteForReason(text_.substr(place_, size)) + " follows a quote without a blank");
    }
  }

  // The word or mark that ends where the reader is.
  std::string_view findTouching() const {
    std::size_t start = place_ - 1;
    while (start > 0 && kBeforeQuote.find(text_[start - 1]) == std::string_view::npos) {
      --start;
    }
    return text_.substr(start, place_ - start);
  }

  void readComment(bool isLine) {
    const std::size_t end =
        isLine ? std::min(text_.find('\n', place_), text_.size()) : text_.find("*/", place_ + 2);
    if (end == std::string_view::npos ||
        text_.substr(place_, end - place_).find('\n') != std::string_view::npos) {
      refuse("a comment is not closed on its line");
      return;
    }
    const std::string_view inside = text_.substr(place_ + 2, end - place_ - 2);
    // What a database runs or a client reads in a comment begins at once: --#SET, /*!, /*+.
    const bool isPlainStart = inside.empty() ? isLine : inside.front() == ' ';
    // What begins another comment for those that nest them may share a mark with the end: /* ... /*/
    const bool isNested = text_.substr(place_ + 2, inside.size() + 1).find("/*") != std::string_view::npos;
    const bool hasQuote = inside.find_first_of("'\"`[]") != std::string_view::npos;
    if (!isPlainStart || inside.find_first_of("\\;!{}$&@") != std::string_view::npos || isNested ||
        inside.find("*/") != std::string_view::npos || (hasQuote && !rules_.readsCommentQuotes)) {
      refuse("it has a comment in which " + std::string(rules_.client) + " may find something to do");
      return;
    }
    place_ = end + (isLine ? 0U : 2U);
  }

  std::string_view text_;
  const SqlDialect& dialect_;
  const ClientRules& rules_;
  std::size_t place_ = 0;
  std::size_t end_ = 0;  // of the last token
  StatementReading reading_;
};

}  // namespace

bool StatementToken::is(std::string_view upperWord) const {
  return kind == Kind::word && text.size() == upperWord.size() && toUpperAscii(text) == upperWord;
}

StatementReading readStatement(std::string_view statement, const SqlDialect& dialect) {
  return StatementReader(statement, dialect).read();
}

std::string quoteForReason(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  const std::string line = toOneLine(text);
  return "'" + std::string(cutUtf8(line, kLongest)) + (line.size() > kLongest ? "...'" : "'");
}
