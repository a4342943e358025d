// The words and marks of an SQL text, of whatever dialect, without its comments and string literals.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct SqlToken {
  enum class Kind { word, quotedName, open, close, comma, dot, other };

  Kind kind;
  std::string text;  // of a quoted name, without its quotes
  char mark = 0;     // the quote in front of a quoted name; of other marks, the mark

  bool isName() const { return kind == Kind::word || kind == Kind::quotedName; }
};

// Names are quoted as "a", [a] or `a`, with the closing quote doubled inside; string literals as 'a' or, with
// delimiters of their own, q'[a]'. What is not closed ends with the text.
std::vector<SqlToken> splitSql(std::string_view text);
