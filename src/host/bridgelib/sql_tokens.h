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
// delimiters of their own, q'[a]'. What is not closed ends with the text. Then `isClear` (if not null) is set
// to false; and where dialects disagree about the end: of a comment that seems to begin inside another, of a
// q'[a]' that holds a quote.
std::vector<SqlToken> splitSql(std::string_view text, bool* isClear = nullptr);
