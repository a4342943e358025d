// Reads a view's statement as the database of a dialect and its usual client read it, and only as far as both
// are known to agree: what may mean something else to one of them is not read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct SqlDialect;

struct StatementToken {
  enum class Kind { word, number, quotedName, literal, open, close, comma, dot, mark };

  Kind kind;
  std::string text;         // of a name, without its quotes; of a literal, nothing
  bool isAfterGap = false;  // a blank, line or comment

  bool isName() const { return kind == Kind::word || kind == Kind::quotedName; }
  bool is(std::string_view upperWord) const;
};

struct StatementReading {
  std::vector<StatementToken> tokens;  // without comments
  std::string obstacle;                // why the statement is not written, on one line; empty: it is all read
};

// `statement` is UTF-8 in lines with a line feed between each two, as toLines() makes them. Where there is no
// obstacle, no token but a blank spans lines, every quote and comment is closed, nothing ends the statement,
// and no line is one that the client takes for itself. Linear in the length.
StatementReading readStatement(std::string_view statement, const SqlDialect& dialect);

// A word or name of a statement as it can be shown in a comment: in quotes, and not too long.
std::string quoteForReason(std::string_view text);
