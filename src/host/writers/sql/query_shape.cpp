#include "host/writers/sql/query_shape.h"

#include <algorithm>
#include <unordered_set>

#include "host/base/text.h"
#include "host/writers/common/dialects.h"

namespace {

using Kind = StatementToken::Kind;

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

// What the dialects do not have in common about a query's form.
struct ShapeRules {
  bool namesDerivedTables = false;  // a query in a FROM clause needs a name
  bool takesAsBeforeAlias = true;   // of a table
  bool hasLeftFunction = false;     // LEFT(x, 2), and RIGHT
  bool needsFrom = false;           // in every query
  bool namesColumns = false;        // every column of a view needs a name
  bool namesColumnsOnce = true;     // and one that no other has
  bool gluesParentheses = false;    // COUNT(x), never COUNT (x)
  bool ordersOnlyLimited = false;   // ORDER BY with TOP or OFFSET
  bool hasDistinctFrom = true;      // a IS DISTINCT FROM b, in all versions that take the script
};
constexpr ShapeRules kShapeRules[] = {
    /* ansi */ {
        .namesDerivedTables = true, .takesAsBeforeAlias = false, .needsFrom = true, .namesColumns = true},
    /* postgresql */ {.namesDerivedTables = true, .hasLeftFunction = true},
    /* sqlite */ {.namesColumnsOnce = false},
    /* mysql */
    {.namesDerivedTables = true, .hasLeftFunction = true, .gluesParentheses = true, .hasDistinctFrom = false},
    /* sqlserver */
    {.namesDerivedTables = true,
     .hasLeftFunction = true,
     .namesColumns = true,
     .ordersOnlyLimited = true,
     .hasDistinctFrom = false},
    /* oracle */
    {.takesAsBeforeAlias = false, .needsFrom = true, .namesColumns = true, .hasDistinctFrom = false},
    /* db2 */ {.hasLeftFunction = true, .needsFrom = true, .namesColumns = true},
};

template <class Words>
bool isOneOf(const StatementToken& token, const Words& words) {
  return token.kind == Kind::word &&
         std::ranges::find(words, toUpperAscii(token.text)) != std::ranges::end(words);
}

// After these, and after a comma or an operator, something follows that is no clause.
constexpr std::string_view kLeadingWords[] = {
    "AND",  "AS",  "BETWEEN", "BY", "DISTINCT", "ELSE",   "FROM", "GROUP", "HAVING", "IN",    "IS",  "JOIN",
    "LIKE", "NOT", "ON",      "OR", "ORDER",    "SELECT", "THEN", "UNION", "WHEN",   "WHERE", "WITH"};
constexpr std::string_view kClauseWords[] = {"FROM", "WHERE", "GROUP", "HAVING", "ORDER", "UNION"};
constexpr std::string_view kSourceEnds[] = {"WHERE", "GROUP",  "HAVING",  "ORDER", "UNION", "EXCEPT",
                                            "MINUS", "SELECT", "CONNECT", "START", "FETCH", "LIMIT"};
constexpr std::string_view kQueryJoints[] = {"UNION", "EXCEPT", "INTERSECT", "MINUS"};
constexpr std::string_view kOperatorWords[] = {"AND",   "OR",     "NOT",       "CASE", "JOIN",
                                               "UNION", "EXCEPT", "INTERSECT", "MINUS"};
constexpr std::string_view kGluedFunctions[] = {"COUNT", "MAX", "MIN", "SUM"};

// Whether a SELECT behind this token goes on with the query that it is in, or begins one inside it.
bool canPrecedeSelect(const StatementToken& token) {
  return token.kind == Kind::open || token.is("ALL") || token.is("DISTINCT") || isOneOf(token, kQueryJoints);
}

// More than any view that a person wrote, and less than makes a parser give up.
constexpr int kDeepest = 50;
constexpr int kMostOperators = 500;

int getDepthChange(const StatementToken& token) {
  return static_cast<int>(token.kind == Kind::open) - static_cast<int>(token.kind == Kind::close);
}

// Reads a query's clauses from the left to the right.
class ShapeCheck {
 public:
  ShapeCheck(std::span<const StatementToken> tokens, const SqlDialect& dialect)
      : tokens_(tokens),
        dialect_(dialect),
        rules_(kShapeRules[static_cast<std::size_t>(dialect.id)]),
        isLimited_(std::ranges::any_of(
            tokens, [](const StatementToken& t) { return t.is("TOP") || t.is("OFFSET"); })) {}

  std::string find() {
    for (; place_ < tokens_.size() && why_.empty(); ++place_) {
      visit(tokens_[place_]);
    }
    endQuery();
    if (why_.empty()) {
      checkColumns();
    }
    return std::move(why_);
  }

 private:
  // Where a pair of parentheses, or the whole, has got to.
  struct Level {
    bool isSource = false;  // it is itself among the tables of a FROM clause
    bool isQuery = false;
    bool hasFrom = false;
    bool inSources = false;  // in a list of tables
    bool expectsSource = false;
  };

  void refuse(std::string why) {
    if (why_.empty()) {
      why_ = std::move(why);
    }
  }

  const StatementToken* next() const { return place_ + 1 < tokens_.size() ? &tokens_[place_ + 1] : nullptr; }

  void visit(const StatementToken& token) {
    checkNext(token);
    Level& level = levels_.back();
    if (token.kind == Kind::open) {
      levels_.push_back({.isSource = level.expectsSource, .expectsSource = level.expectsSource});
    } else if (token.kind == Kind::close) {
      endQuery();
      const bool isDerivedTable = level.isSource && level.isQuery;
      levels_.pop_back();
      levels_.back().expectsSource = false;
      if (isDerivedTable && rules_.namesDerivedTables && !isNamed()) {
        refuse("a query in its FROM clause has no name, which " + std::string(dialect_.system) + " needs");
      }
    } else if (token.kind == Kind::comma) {
      level.expectsSource = level.hasFrom && level.inSources;
    } else if (token.kind == Kind::word) {
      visitWord(token, level);
    } else {
      level.expectsSource = false;
    }
  }

  void visitWord(const StatementToken& token, Level& level) {
    const bool isAfterDistinct = place_ > 0 && tokens_[place_ - 1].is("DISTINCT");
    if (token.is("SELECT")) {
      level = {.isSource = level.isSource, .isQuery = true};
    } else if (token.is("FROM") && level.isQuery && !isAfterDistinct) {
      level.hasFrom = level.inSources = level.expectsSource = true;
    } else if (token.is("JOIN")) {
      level.inSources = level.expectsSource = true;
    } else if (token.is("ON")) {
      level.inSources = false;
    } else if (isOneOf(token, kSourceEnds)) {
      if (token.is("ORDER") && level.isQuery && rules_.ordersOnlyLimited && !isLimited_) {
        refuse("it has ORDER BY, but neither TOP nor OFFSET");
      }
      if (isOneOf(token, kQueryJoints)) {
        endQuery();
      }
      level.inSources = level.expectsSource = false;
    } else if (token.is("AS")) {
      if (level.inSources && !rules_.takesAsBeforeAlias) {
        refuse("it has AS before a table's alias");
      }
    } else {
      level.expectsSource = false;
    }
    if (next() != nullptr && next()->kind == Kind::open) {
      checkFunction(token);
    }
  }

  void checkFunction(const StatementToken& name) {
    if ((name.is("LEFT") || name.is("RIGHT")) && !rules_.hasLeftFunction) {
      refuse(quoteForReason(name.text) + " is not a function of " + std::string(dialect_.system));
    }
    if (rules_.gluesParentheses && isOneOf(name, kGluedFunctions) && next()->isAfterGap) {
      refuse("a blank follows " + quoteForReason(name.text) + ", so that " + std::string(dialect_.system) +
             " takes it for no function");
    }
  }

  // What must go on, but ends.
  void checkNext(const StatementToken& token) {
    const bool isOperator = token.kind == Kind::mark && token.text != "*";
    const bool goesOn =
        isOperator || token.kind == Kind::comma || token.kind == Kind::dot || isOneOf(token, kLeadingWords);
    const bool isFromOfComparison = token.is("DISTINCT") && next() != nullptr && next()->is("FROM");
    if (goesOn && !isFromOfComparison &&
        (next() == nullptr || next()->kind == Kind::close || next()->kind == Kind::comma ||
         isOneOf(*next(), kClauseWords))) {
      refuse("something is missing after " + quoteForReason(token.text));
    }
    if (isFromOfComparison && !rules_.hasDistinctFrom) {
      refuse("it compares with IS DISTINCT FROM");
    }
    if (token.is("INTO")) {
      refuse("it has INTO, which no view can have");
    }
    if (token.is("SELECT") && place_ > 0 && tokens_[place_ - 1].is("WITH")) {
      refuse("something is missing after 'WITH'");
    }
  }

  // Whether an alias comes next.
  bool isNamed() const {
    return next() != nullptr && next()->isName() && (next()->is("AS") || !isSharedWord(*next()));
  }

  void endQuery() {
    const Level& level = levels_.back();
    if (level.isQuery && !level.hasFrom && rules_.needsFrom) {
      refuse("it has a SELECT without FROM");
    }
  }

  // The columns of the view: what the first SELECT outside of parentheses lists.
  void checkColumns() {
    int depth = 0;
    std::size_t i = 0;
    for (; i < tokens_.size() && !(depth == 0 && tokens_[i].is("SELECT")); ++i) {
      depth += getDepthChange(tokens_[i]);
    }
    std::size_t start = ++i;
    for (int number = 1; i <= tokens_.size(); ++i) {
      const bool isEnd = i == tokens_.size() ||
                         (depth == 0 && isOneOf(tokens_[i], kClauseWords) && !tokens_[i - 1].is("DISTINCT"));
      if (isEnd || (depth == 0 && tokens_[i].kind == Kind::comma)) {
        checkColumn(tokens_.subspan(start, i - start), number++);
        start = i + 1;
      }
      if (isEnd) {
        return;
      }
      depth += getDepthChange(tokens_[i]);
    }
  }

  void checkColumn(std::span<const StatementToken> item, int number) {
    if (item.empty() || item.back().text == "*") {
      return;
    }
    const bool isPrefixed = dialect_.id == DialectId::sqlserver && item.size() > 2 && item[1].text == "=";
    const StatementToken& name = isPrefixed ? item.front() : item.back();
    const bool isNamed = name.isName() && !isSharedWord(name);
    if (!isNamed && rules_.namesColumns) {
      refuse("its column " + std::to_string(number) + " has no name");
    }
    if (isNamed && rules_.namesColumnsOnce &&
        !columns_.insert(foldIdentifier(name.text, name.kind == Kind::quotedName, dialect_)).second) {
      refuse("two of its columns have the name " + quoteForReason(name.text));
    }
  }

  std::span<const StatementToken> tokens_;
  const SqlDialect& dialect_;
  const ShapeRules& rules_;
  std::size_t place_ = 0;
  std::vector<Level> levels_{Level{}};
  bool isLimited_;  // by TOP or OFFSET
  std::unordered_set<std::string> columns_;
  std::string why_;
};

}  // namespace

bool isSharedWord(const StatementToken& token, const SqlDialect* dialect) {
  if (token.kind != Kind::word) {
    return false;
  }
  const std::string upper = toUpperAscii(token.text);
  const auto* const found =
      std::ranges::lower_bound(kSharedWords, std::string_view(upper), {}, &SharedWord::word);
  return found != std::end(kSharedWords) && found->word == upper &&
         (dialect == nullptr || found->notIn != dialect->name);
}

std::string findQueryObstacle(std::span<const StatementToken> tokens) {
  if (tokens.empty()) {
    return "it has no statement";
  }
  if (!tokens.front().is("SELECT") && !tokens.front().is("WITH")) {
    return "it begins with " + quoteForReason(tokens.front().text) + ", not with SELECT or WITH";
  }
  int depth = 0;
  int beginnings = 0;  // of separate queries
  int operators = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const StatementToken& token = tokens[i];
    depth += getDepthChange(token);
    beginnings += static_cast<int>(token.is("SELECT") && (i == 0 || !canPrecedeSelect(tokens[i - 1])));
    operators += static_cast<int>(token.kind == Kind::mark || isOneOf(token, kOperatorWords));
    if (depth < 0) {
      return "a parenthesis closes that was not open";
    }
    if (depth > kDeepest || operators > kMostOperators) {
      return "it is too deep for some parsers";
    }
    // Routines within a query hold statements of their own.
    if (i > 0 && tokens[i - 1].is("WITH") && (token.is("FUNCTION") || token.is("PROCEDURE"))) {
      return "it has a routine of its own: " + quoteForReason(token.text);
    }
  }
  if (depth > 0) {
    return "a parenthesis is not closed";
  }
  return beginnings == 1 ? "" : "it is not one whole query";
}

std::string findShapeObstacle(std::span<const StatementToken> tokens, const SqlDialect& dialect) {
  return ShapeCheck(tokens, dialect).find();
}
