#include "cli/suggestion.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace cli {

namespace {

bool isSame(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

// The edit distance of Levenshtein, row by row.
std::size_t countEdits(const std::string& from, const std::string& to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char letter : from) {
    std::size_t diagonal = row[0]++;
    for (std::size_t i = 0; i < to.size(); ++i) {
      const std::size_t changed = diagonal + (isSame(letter, to[i]) ? 0 : 1);
      diagonal = row[i + 1];
      row[i + 1] = std::min({changed, row[i] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string findNearest(const std::string& word, const std::vector<std::string>& candidates) {
  constexpr std::size_t kSomething = 3;  // letters that a word begun must have
  std::string nearest;
  std::size_t least = word.size() / 3 + 2;  // no longer near
  for (const std::string& candidate : candidates) {
    const bool cutShort = word.size() >= kSomething && candidate.starts_with(word);
    const std::size_t edits = cutShort ? 1 : countEdits(word, candidate);
    if (edits < least && edits < candidate.size()) {
      nearest = candidate;
      least = edits;
    }
  }
  return nearest;
}

std::string suggest(const std::string& word, const std::vector<std::string>& candidates) {
  const std::string nearest = findNearest(word, candidates);
  return nearest.empty() ? "" : "; did you mean '" + nearest + "'?";
}

}  // namespace cli
