#include <algorithm>
#include <ctime>
#include <set>
#include <vector>

#include "host/sql/sql_sources.h"
#include "host/sql/sql_tokens.h"
#include "support.h"
#include "targets.h"

namespace {

using Kind = SqlToken::Kind;

// The text as it stands in the statement.
std::string spell(const SqlToken& token) {
  if (token.kind != Kind::quotedName) {
    return token.text;
  }
  std::string spelled;
  const char closing = token.mark == '[' ? ']' : token.mark;
  for (const char byte : token.text) {
    spelled.append(byte == closing ? 2 : 1, byte);
  }
  return spelled;
}

void checkTokens(std::string_view text, const std::vector<SqlToken>& tokens) {
  std::set<std::string> names;
  std::size_t place = 0;
  for (const SqlToken& token : tokens) {
    const std::string spelled = spell(token);
    place = text.find(spelled, place);
    require(place != std::string_view::npos, "a token is not part of the text", spelled);
    place += spelled.size();
    if (token.isName()) {
      names.insert(token.text);
    }
  }
  for (const std::string& name : findSourceNames(text)) {
    require(names.contains(name), "a source is no name of the text", name);
  }
}

}  // namespace

void fuzzSqlReader(Bytes input) {
  constexpr std::size_t kLong = 1U << 16U;
  constexpr std::clock_t kFarTooLong = 2 * CLOCKS_PER_SEC;  // it takes about 0.05 seconds
  const bool isRepeated = input.take() == 255;
  std::string text(input.rest());
  while (isRepeated && !text.empty() && text.size() < kLong) {
    text += text;
  }
  const std::clock_t start = std::clock();
  const std::vector<SqlToken> tokens = splitSql(text);
  require(tokens.size() <= text.size(), "there are more tokens than bytes");
  if (isRepeated) {
    findSourceNames(text);
    require(std::clock() - start < kFarTooLong, "a long text takes too long");
    return;
  }
  checkTokens(text, tokens);
  // Only literals, quoted names and comments can be left open.
  const bool canBeOpen = text.find_first_of("'\"`[/-") != std::string::npos;
  require(canBeOpen || splitSql(text + " (").size() == tokens.size() + 1, "a text takes in what follows it",
          text);
}
