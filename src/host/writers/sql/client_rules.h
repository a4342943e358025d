// What the usual client of a dialect does to the lines of a script by itself, and how a line is kept safe
// from it. A client reads a script line by line and knows less SQL than the database.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct SqlDialect;

// A row per dialect; what is not known to be harmless is not in it.
struct ClientRules {
  std::string_view client;            // what the rules are those of: "psql"
  std::string_view words = {};        // commands at the start of a line, each between blanks
  std::string_view lineEnds = {};     // marks that mean something at the end of a line, comments included
  std::string_view wordEnds = {};     // a command wherever a word ends so
  std::string_view wordMarks = {};    // belong to a word, but not as its first character
  bool escapesBackslash = false;      // in some literals, or with some setting of the database
  bool readsCommentQuotes = false;    // so that a quote in a comment opens nothing
  bool hasNationalLiterals = false;   // N'...'
  std::size_t lineLength = SIZE_MAX;  // bytes; longer lines are dropped
};

const ClientRules& getClientRules(const SqlDialect& dialect);

// The line as it can follow the mark of a comment, without the client acting on it: `line` has no line
// breaks.
std::string toCommentLine(std::string_view line, const SqlDialect& dialect);
