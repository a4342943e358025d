// What a misspelt word was probably meant to be.
#pragma once

#include <string>
#include <vector>

namespace cli {

// The candidate that takes the fewest changed, missing and superfluous characters to get to from `word`,
// whose letter case does not count; empty when none is near. A word that is cut short is near.
std::string findNearest(const std::string& word, const std::vector<std::string>& candidates);

// The same as the end of a sentence, "; did you mean 'json'?", or nothing.
std::string suggest(const std::string& word, const std::vector<std::string>& candidates);

}  // namespace cli
