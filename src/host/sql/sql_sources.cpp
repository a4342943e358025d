#include "host/sql/sql_sources.h"

#include <algorithm>
#include <unordered_set>

#include "host/base/text.h"
#include "host/base/unicode.h"
#include "host/sql/sql_tokens.h"

namespace {

using Kind = SqlToken::Kind;

// What a list of tables begins with.
constexpr std::string_view kSourceWords[] = {"FROM", "JOIN"};
// What ends it.
constexpr std::string_view kEndingWords[] = {"SELECT",    "WHERE",  "GROUP", "HAVING", "ORDER", "UNION",
                                             "INTERSECT", "EXCEPT", "MINUS", "LIMIT",  "FETCH", "OFFSET",
                                             "FOR",       "WINDOW", "START", "CONNECT"};
// What may stand in front of a table's name.
constexpr std::string_view kModifiers[] = {"ONLY", "LATERAL"};
// What comes after the FOR that asks for a table's rows as of another time, and does not end the list.
constexpr std::string_view kPeriods[] = {"SYSTEM_TIME", "BUSINESS_TIME"};

template <std::size_t size>
bool isOneOf(const std::string_view (&words)[size], std::string_view word) {
  return std::find(words, words + size, word) != words + size;
}

class SourceFinder {
 public:
  explicit SourceFinder(std::string_view statement) : tokens_(splitSql(statement)) {}

  std::vector<SqlSource> find() {
    for (; place_ < tokens_.size(); ++place_) {
      visit(tokens_[place_]);
    }
    std::erase_if(sources_, [&](const SqlSource& source) {
      return !source.isQualified && queries_.contains(foldCase(source.name));
    });
    return std::move(sources_);
  }

 private:
  // Where a pair of parentheses, or the whole, has got to.
  struct Level {
    bool inQuery = false;       // FROM begins a list of tables, unlike that in EXTRACT(YEAR FROM born)
    bool inSources = false;     // in a list of tables
    bool expectsName = false;   // a table's name, or a query in parentheses, comes next
    bool inQueries = false;     // in the list of a WITH clause
    bool expectsQuery = false;  // the name of a query comes next
  };

  void visit(const SqlToken& token) {
    Level& level = levels_.back();
    switch (token.kind) {
      case Kind::word:
        visitWord(token, level);
        break;
      case Kind::quotedName:
        visitName(token, level);
        break;
      case Kind::open:
        level.inQueries &= !level.expectsQuery;  // no name: a hint, such as WITH (NOLOCK)
        level.expectsQuery = false;
        levels_.push_back(
            {.inQuery = level.expectsName, .inSources = level.expectsName, .expectsName = level.expectsName});
        break;
      case Kind::close:
        if (levels_.size() > 1) {
          levels_.pop_back();
        }
        levels_.back().expectsName = false;
        break;
      case Kind::comma:
        level.expectsName = level.inSources;
        level.expectsQuery = level.inQueries;
        break;
      case Kind::other:
        // "{ oj a LEFT JOIN b ... }" is a list of tables like any other.
        place_ += static_cast<std::size_t>(token.mark == '{' && level.expectsName && isNextWord("OJ"));
        break;
      default:
        break;
    }
  }

  void visitWord(const SqlToken& token, Level& level) {
    const std::string word = toUpperAscii(token.text);
    if (isOneOf(kSourceWords, word)) {
      if (level.inQuery && !isBehindDistinct()) {
        level = {.inQuery = true, .inSources = true, .expectsName = true};
      }
    } else if (word == "STRAIGHT_JOIN" && level.inSources) {  // else it is a hint behind SELECT
      level.expectsName = true;
    } else if (word == "FOR" && isNextPeriod()) {
      ++place_;
      place_ += static_cast<std::size_t>(isNextWord("FROM"));  // of FROM time TO time
    } else if (isOneOf(kEndingWords, word) || (word == "SEL" && isSelect(level))) {
      level = {.inQuery = level.inQuery || word.starts_with("SEL")};
    } else if (word == "WITH") {
      level.inQueries = true;
      level.expectsQuery = true;
    } else if (!(level.expectsQuery && word == "RECURSIVE") &&
               !(level.expectsName && isOneOf(kModifiers, word))) {
      visitName(token, level);
    }
  }

  void visitName(const SqlToken& token, Level& level) {
    if (level.expectsQuery) {
      level.expectsQuery = false;
      level.inQueries = isFollowedByQuery();
      if (level.inQueries) {
        queries_.insert(foldCase(token.text));
      }
    } else if (level.expectsName) {
      level.expectsName = false;
      sources_.push_back(readQualifiedName());
    }
  }

  bool isNextWord(std::string_view upper) const {
    return place_ + 1 < tokens_.size() && tokens_[place_ + 1].kind == Kind::word &&
           toUpperAscii(tokens_[place_ + 1].text) == upper;
  }

  bool isNextPeriod() const {
    return std::ranges::any_of(kPeriods, [&](std::string_view period) { return isNextWord(period); });
  }

  // Whether the SEL that the finder stands on is short for SELECT, and not the name or the alias of a table.
  bool isSelect(const Level& level) const {
    const bool isPart = place_ + 1 < tokens_.size() && tokens_[place_ + 1].kind == Kind::dot;
    return !isPart && (!level.inSources || tokens_[place_ - 1].kind == Kind::open);
  }

  // Whether this is the FROM of a comparison, IS DISTINCT FROM.
  bool isBehindDistinct() const { return place_ > 0 && toUpperAscii(tokens_[place_ - 1].text) == "DISTINCT"; }

  // Whether the name that the finder stands on is one that a WITH clause gives, unlike that in WITH CHECK
  // OPTION.
  bool isFollowedByQuery() const {
    if (place_ + 1 == tokens_.size()) {
      return false;
    }
    const SqlToken& next = tokens_[place_ + 1];
    return next.kind == Kind::open || (next.kind == Kind::word && toUpperAscii(next.text) == "AS");
  }

  // Moves on to the last part of the name that begins here. Parts in the middle may be left out:
  // "sales..orders".
  SqlSource readQualifiedName() {
    std::size_t last = place_;
    std::string qualifier;
    while (place_ + 1 < tokens_.size() &&
           (tokens_[place_ + 1].kind == Kind::dot ||
            (tokens_[place_].kind == Kind::dot && tokens_[place_ + 1].isName()))) {
      ++place_;
      if (tokens_[place_].isName()) {
        qualifier = tokens_[place_ - 2].isName() ? tokens_[place_ - 2].text : "";
        last = place_;
      }
    }
    const bool isQualified = last != place_ || (last > 0 && tokens_[last - 1].kind == Kind::dot);
    return {tokens_[last].text, std::move(qualifier), isQualified};
  }

  std::vector<SqlToken> tokens_;
  std::size_t place_ = 0;
  std::vector<Level> levels_{Level{.inQuery = true}};
  std::vector<SqlSource> sources_;
  std::unordered_set<std::string> queries_;  // the names that WITH clauses give, in one letter case
};

}  // namespace

std::vector<SqlSource> findSources(std::string_view statement) {
  return SourceFinder(statement).find();
}

std::vector<std::string> findSourceNames(std::string_view statement) {
  std::vector<std::string> names;
  for (SqlSource& source : findSources(statement)) {
    names.push_back(std::move(source.name));
  }
  return names;
}
