#include "cli/option_values.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <sstream>
#include <vector>

#include "cli/commands.h"
#include "cli/suggestion.h"
#include "host/base/options.h"
#include "host/encoding/encodings.h"

namespace cli {

namespace {

bool equalsIgnoringCase(const VornString& a, const std::string& b) {
  return a.equals(VornString(b), false);
}

bool hasWord(const VornString& choice, const std::string& word) {
  std::string words(choice.view());
  std::replace(words.begin(), words.end(), '/', ' ');
  std::istringstream stream(words);
  return std::any_of(std::istream_iterator<std::string>(stream), {},
                     [&](const std::string& part) { return equalsIgnoringCase(VornString(part), word); });
}

// The one choice that `test` accepts; null when none is or several are.
template <class Test>
const VornString* findOnly(const std::vector<VornString>& choices, Test test) {
  const auto first = std::find_if(choices.begin(), choices.end(), test);
  const bool only = first != choices.end() && std::none_of(first + 1, choices.end(), test);
  return only ? &*first : nullptr;
}

const VornString* findChoice(const std::vector<VornString>& choices, const std::string& word) {
  if (const auto* exact =
          findOnly(choices, [&](const auto& choice) { return equalsIgnoringCase(choice, word); })) {
    return exact;
  }
  if (const VornEncoding* encoding = findEncoding(word)) {
    if (const auto* byShortName =
            findOnly(choices, [&](const auto& choice) { return choice.view() == encoding->name; })) {
      return byShortName;
    }
  }
  return findOnly(choices, [&](const auto& choice) { return hasWord(choice, word); });
}

// A word that is enough to name the choice: "origin" of "Link Origin (ER Modeling Style)".
std::string shorten(const VornString& choice, const std::vector<VornString>& choices) {
  std::string parts(choice.view());
  std::ranges::replace(parts, '/', ' ');
  std::istringstream stream(parts);
  for (std::string word; stream >> word;) {
    if (findChoice(choices, word) == &choice) {
      std::ranges::transform(word, word.begin(), [](unsigned char c) { return std::tolower(c); });
      return word;
    }
  }
  return "'" + std::string(choice.view()) + "'";
}

// What was probably meant, or else what there is.
std::string describeChoices(const VornOption& option, const std::string& wrong) {
  const std::vector<VornString>& choices = option.getChoices();
  std::vector<std::string> words;
  for (const VornString& choice : choices) {
    std::string parts(choice.view());
    std::replace_if(
        parts.begin(), parts.end(), [](char c) { return c == '/' || c == '(' || c == ')'; }, ' ');
    std::istringstream stream(parts);
    std::copy_if(std::istream_iterator<std::string>(stream), {}, std::back_inserter(words),
                 [&](const std::string& word) { return findChoice(choices, word) != nullptr; });
  }
  if (const std::string nearest = findNearest(wrong, words); !nearest.empty()) {
    return "did you mean '" + nearest + "'?";
  }
  constexpr std::size_t kFew = 6;
  if (choices.size() > kFew) {
    return option.getName() == "Encoding" ? "`vorn encodings` lists the choices"
                                          : "`vorn bridge options` lists the choices";
  }
  std::string text;
  for (const VornString& choice : choices) {
    text += (text.empty() ? "choose " : " or ") + shorten(choice, choices);
  }
  return text;
}

}  // namespace

void setOption(VornOptionList& options, const std::string& name, const std::string& value,
               const std::string& flag) {
  VornOption* option = options.get(VornString(name));
  if (option == nullptr) {
    std::vector<std::string> names;
    for (const auto& known : options) {
      names.emplace_back(known->getName().view());
    }
    throw UsageError("the bridge has no option '" + name + "': `vorn bridge options` lists them" +
                     suggest(name, names));
  }
  if (option->getChoices().empty()) {
    option->setValue(VornString(value));
    return;
  }
  const VornString* choice = findChoice(option->getChoices(), value);
  if (choice == nullptr) {
    throw UsageError("invalid value '" + value + "' for " +
                     (flag.empty() ? "the option '" + name + "'" : flag) + ": " +
                     describeChoices(*option, value));
  }
  option->setValue(*choice);
}

void setOption(VornOptionList& options, const std::string& assignment) {
  const std::size_t sign = assignment.find('=');
  if (sign == std::string::npos) {
    throw UsageError("--option requires NAME=VALUE, not '" + assignment + "'");
  }
  setOption(options, assignment.substr(0, sign), assignment.substr(sign + 1));
}

}  // namespace cli
