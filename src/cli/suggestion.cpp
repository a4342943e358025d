#include "cli/suggestion.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>

namespace cli {

namespace {

bool isSame(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

// The edit distance of Levenshtein, row by row, where two neighbours that changed places are one edit.
std::size_t countEdits(const std::string& from, const std::string& to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  std::vector<std::size_t> above;
  std::vector<std::size_t> twoAbove;
  for (std::size_t j = 0; j < from.size(); ++j) {
    twoAbove = std::exchange(above, row);
    row[0] = j + 1;
    for (std::size_t i = 0; i < to.size(); ++i) {
      row[i + 1] = std::min({above[i] + (isSame(from[j], to[i]) ? 0 : 1), row[i] + 1, above[i + 1] + 1});
      if (i > 0 && j > 0 && isSame(from[j], to[i - 1]) && isSame(from[j - 1], to[i])) {
        row[i + 1] = std::min(row[i + 1], twoAbove[i - 1] + 1);
      }
    }
  }
  return row.back();
}

}  // namespace

std::string findNearest(const std::string& word, const std::vector<std::string>& candidates) {
  constexpr std::size_t kSomething = 3;  // letters that a word begun must have
  std::string nearest;
  // No longer near: of a short word one edit alone leaves enough to know it by.
  std::size_t least = word.size() <= 4 ? 2 : word.size() / 3 + 2;
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
