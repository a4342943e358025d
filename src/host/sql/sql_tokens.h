// The words and marks of an SQL text in any dialect, without comments and string literals.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct SqlToken {
  enum class Kind { word, quotedName, open, close, comma, dot, other };

  Kind kind;
  std::string text;  // of a quoted name, without its quotes
  char mark = 0;     // the opening quote of a quoted name, or the mark itself

  bool isName() const { return kind == Kind::word || kind == Kind::quotedName; }
};

// Names are quoted as "a", [a] or `a`, with the closing quote doubled inside; string literals as 'a' or
// q'[a]'. An open quote or comment ends with the text.
std::vector<SqlToken> splitSql(std::string_view text);
