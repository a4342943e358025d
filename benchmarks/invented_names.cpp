#include "invented_names.h"

#include <string_view>

std::string makeWord(std::size_t index) {
  constexpr std::string_view kConsonants = "bdfgklmnprstvz";
  constexpr std::string_view kVowels = "aeiou";
  constexpr std::size_t kSyllables = kConsonants.size() * kVowels.size();
  constexpr std::size_t kShortWords = kSyllables * kSyllables * kSyllables;
  std::string word;
  const auto addSyllable = [&](std::size_t syllable) {
    word += kConsonants[syllable % kConsonants.size()];
    word += kVowels[syllable / kConsonants.size()];
  };
  // Scattered, so that neighbours differ: the factor has no divisor in common with the number of words.
  std::size_t scattered = index % kShortWords * 150151 % kShortWords;
  for (int count = 0; count < 3; ++count, scattered /= kSyllables) {
    addSyllable(scattered % kSyllables);
  }
  for (std::size_t rest = index / kShortWords; rest > 0; rest /= kSyllables) {
    addSyllable(rest % kSyllables);
  }
  return word;
}

std::string makeName(std::size_t index) {
  return index % 3 == 0 ? makeWord(index) + "_" + makeWord(index / 3) : makeWord(index);
}
