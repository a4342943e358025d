#include "host/writers/sql/view_statements.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "host/bridgelib/sql_sources.h"
#include "host/bridgelib/sql_tokens.h"
#include "host/writers/sql/sql_script.h"

namespace {

// Words that mean the same in all dialects, but for those behind them.
struct SharedWord {
  std::string_view word;
  std::string_view notIn = {};
};
constexpr SharedWord kSharedWords[] = {
    {"ABS"},           {"ALL"},      {"AND"},    {"AS"},       {"ASC"},    {"AVG"},
    {"BETWEEN"},       {"BY"},       {"CASE"},   {"COALESCE"}, {"COUNT"},  {"CROSS"},
    {"DESC"},          {"DISTINCT"}, {"ELSE"},   {"END"},      {"EXISTS"}, {"FROM"},
    {"FULL", "mysql"}, {"GROUP"},    {"HAVING"}, {"IN"},       {"INNER"},  {"IS"},
    {"JOIN"},          {"LEFT"},     {"LIKE"},   {"LOWER"},    {"MAX"},    {"MIN"},
    {"NOT"},           {"NULL"},     {"NULLIF"}, {"ON"},       {"OR"},     {"ORDER", "sqlserver"},
    {"OUTER"},         {"RIGHT"},    {"SELECT"}, {"SUM"},      {"THEN"},   {"UNION"},
    {"UPPER"},         {"WHEN"},     {"WHERE"},  {"WITH"},
};
static_assert(std::ranges::is_sorted(kSharedWords, {}, &SharedWord::word), "the table is searched by halves");

const SharedWord* findSharedWord(const SqlToken& token) {
  if (token.kind != SqlToken::Kind::word) {
    return nullptr;
  }
  const std::string upper = toUpperAscii(token.text);
  const auto* const found =
      std::ranges::lower_bound(kSharedWords, std::string_view(upper), {}, &SharedWord::word);
  return found == std::end(kSharedWords) || found->word != upper ? nullptr : found;
}

bool isWord(const SqlToken& token, std::string_view upper) {
  return token.kind == SqlToken::Kind::word && toUpperAscii(token.text) == upper;
}

bool isNumber(const SqlToken& token) {
  return token.kind == SqlToken::Kind::word &&
         std::ranges::all_of(token.text, [](char c) { return c >= '0' && c <= '9'; });
}

// Whether a SELECT behind this token goes on with the query that it is in, or begins one inside it.
bool canPrecedeSelect(const SqlToken& token) {
  return token.kind == SqlToken::Kind::open ||
         std::ranges::any_of(std::array{"UNION", "ALL", "EXCEPT", "INTERSECT", "MINUS"},
                             [&](const char* word) { return isWord(token, word); });
}

// More than any view that a person wrote, and less than makes a parser give up.
constexpr int kDeepest = 50;
constexpr int kMostOperators = 500;

// One statement, whole: nothing in it ends it early, and nothing goes on behind it.
bool isWholeQuery(const std::vector<SqlToken>& tokens) {
  if (tokens.empty() || !(isWord(tokens.front(), "SELECT") || isWord(tokens.front(), "WITH"))) {
    return false;
  }
  int depth = 0;
  int beginnings = 0;  // of a query of its own
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const SqlToken& token = tokens[i];
    depth += static_cast<int>(token.kind == SqlToken::Kind::open);
    depth -= static_cast<int>(token.kind == SqlToken::Kind::close);
    if (isWord(token, "SELECT") && (i == 0 || !canPrecedeSelect(tokens[i - 1]))) {
      ++beginnings;
    }
    if (depth < 0 || token.mark == ';' || token.mark == '\\' || token.mark == '@' || isWord(token, "GO")) {
      return false;
    }
  }
  return depth == 0 && beginnings == 1;
}

// Whether a parser that goes down a level for each parenthesis and operator can come to its end.
bool isShallow(const std::vector<SqlToken>& tokens) {
  int depth = 0;
  int operators = 0;
  for (const SqlToken& token : tokens) {
    depth += static_cast<int>(token.kind == SqlToken::Kind::open);
    depth -= static_cast<int>(token.kind == SqlToken::Kind::close);
    operators += static_cast<int>(token.kind == SqlToken::Kind::other || isWord(token, "AND") ||
                                  isWord(token, "OR") || isWord(token, "NOT"));
    if (depth > kDeepest || operators > kMostOperators) {
      return false;
    }
  }
  return true;
}

// Whether some client would take a line of the statement for its end.
bool hasLoneSlash(std::string_view statement) {
  while (!statement.empty()) {
    const std::string_view line = statement.substr(0, statement.find('\n'));
    const std::size_t slash = line.find_first_not_of(' ');
    if (slash != std::string_view::npos && line[slash] == '/' && line.find_last_not_of(' ') == slash) {
      return true;
    }
    statement.remove_prefix(std::min(line.size() + 1, statement.size()));
  }
  return false;
}

class StatementCheck {
 public:
  StatementCheck(const SqlScript& script, const VornSQLViewEntity& view)
      : script_(script), view_(view), isOwn_(findSqlDialectOf(script.model) == &script.dialect) {}

  std::string_view findObstacle(std::string_view statement) {
    bool isClear = true;
    const std::vector<SqlToken> tokens = splitSql(statement, &isClear);
    const bool hasClientMarks =
        script_.dialect.escapesBackslash &&
        (statement.find('\\') != std::string_view::npos || statement.find("--") != std::string_view::npos ||
         statement.find("/*") != std::string_view::npos);
    if (!isClear || hasClientMarks || hasLoneSlash(statement) || !isWholeQuery(tokens)) {
      return "it is not one whole query";
    }
    if (!isShallow(tokens)) {
      return "it is too deep for some parsers";
    }
    for (const std::string& source : findSourceNames(statement)) {
      sourceNames_.insert(foldCase(source));
    }
    if (const std::string_view why = learnSources(tokens); !why.empty()) {
      return why;
    }
    if (!std::ranges::all_of(tokens, [&](const SqlToken& token) { return isQuotedAsHere(token); })) {
      return "its names are quoted as in another dialect";
    }
    learnOwnNames(tokens);
    const bool takesAnyWord = isOwn_ && !script_.format.logicalNames;
    return takesAnyWord || areAllKnown(tokens) ? "" : "it may use what only another dialect knows";
  }

 private:
  // What the database keeps for an identifier that the script writes.
  std::string stored(const VornModelObject& element) const {
    const std::string_view name = script_.names.get(element);
    return foldIdentifier(name, script_.format.quoteAll || !standsUnquoted(name, script_.dialect),
                          script_.dialect);
  }
  std::string stored(const SqlToken& token) const {
    return foldIdentifier(token.text, token.kind == SqlToken::Kind::quotedName, script_.dialect);
  }

  std::string_view learnSources(const std::vector<SqlToken>& tokens) {
    if (view_.sourceElementCollection.count() > kMostViewSources) {
      return "it reads too many tables to look into";
    }
    std::unordered_set<std::string> words;
    for (const SqlToken& token : tokens) {
      if (token.isName()) {
        words.insert(stored(token));
      }
    }
    const VornDataPackage* home = getSchema(view_);
    for (const VornClassifier* source : view_.sourceElementCollection) {
      const VornDataPackage* schema = script_.dialect.names.hasSchemas ? getSchema(*source) : nullptr;
      if (!words.contains(stored(*source))) {
        return "it calls what it reads by another name than the script does";
      }
      if (schema != nullptr) {
        if (schema != home && !words.contains(stored(*schema))) {
          return "it reads a table of another schema without its name";
        }
        known_.insert(stored(*schema));
      }
      known_.insert(stored(*source));
      sourceNames_.erase(foldCase(script_.names.get(*source)));
      for (const VornFeature* column : source->featureCollection) {
        if (columnsLeft_-- == 0) {
          return "it reads too many columns to look into";
        }
        known_.insert(stored(*column));
      }
    }
    return sourceNames_.empty() ? "" : "it reads what is not in the model";
  }

  // The names that the statement gives to tables, columns and queries.
  void learnOwnNames(const std::vector<SqlToken>& tokens) {
    for (std::size_t i = 1; i < tokens.size(); ++i) {
      const SqlToken& previous = tokens[i - 1];
      if (!tokens[i].isName() || findSharedWord(tokens[i]) != nullptr) {
        continue;
      }
      const bool isBehindName = previous.isName() && findSharedWord(previous) == nullptr;
      const bool isQuery =
          i + 2 < tokens.size() && isWord(tokens[i + 1], "AS") && tokens[i + 2].kind == SqlToken::Kind::open;
      if (isBehindName || isQuery || previous.kind == SqlToken::Kind::close || isWord(previous, "AS") ||
          isWord(previous, "END")) {
        known_.insert(stored(tokens[i]));
      }
    }
  }

  bool isQuotedAsHere(const SqlToken& token) const {
    return token.kind != SqlToken::Kind::quotedName || token.mark == script_.dialect.openQuote;
  }

  bool areAllKnown(const std::vector<SqlToken>& tokens) const {
    return std::ranges::all_of(tokens, [&](const SqlToken& token) {
      if (token.kind == SqlToken::Kind::other) {
        return std::string_view("*-/=<>").find(token.mark) != std::string_view::npos;
      }
      if (!token.isName() || isNumber(token)) {
        return true;
      }
      const SharedWord* shared = findSharedWord(token);
      return shared == nullptr ? known_.contains(stored(token)) : shared->notIn != script_.dialect.name;
    });
  }

  const SqlScript& script_;
  const VornSQLViewEntity& view_;
  bool isOwn_;
  std::unordered_set<std::string> sourceNames_;  // of what the statement reads and is not found yet
  std::unordered_set<std::string> known_;
  int columnsLeft_ = 10000;
};

}  // namespace

std::string_view findObstacle(const SqlScript& script, const VornSQLViewEntity& view,
                              std::string_view statement) {
  return StatementCheck(script, view).findObstacle(statement);
}
