// The tables of docs/format.md against the layouts that records are read by.
#include "bridge/pipeline/sections.h"

#include <fstream>
#include <map>
#include <regex>

#include "tests/support.h"

namespace silrdm {
namespace {

using Fields = std::map<int, std::string>;              // name by number
using Layouts = std::map<int, std::pair<int, Fields>>;  // width and fields by section

std::vector<std::string> findAll(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  return {std::sregex_token_iterator(text.begin(), text.end(), expression), std::sregex_token_iterator()};
}

// "| 21, 23 | `first`, `second` | three words |" of the record tables, and the table of widths.
Layouts readPage() {
  Layouts layouts;
  std::ifstream page(VORN_FORMAT_PAGE);
  std::vector<std::string> sections;
  int section = 0;
  for (std::string line; std::getline(page, line);) {
    const std::vector<std::string> numbers = findAll(line, "[0-9]+");
    if (line.starts_with("| section |")) {
      sections = numbers;
    } else if (line.starts_with("| fields |")) {
      for (std::size_t i = 0; i < numbers.size(); ++i) {
        layouts[std::stoi(sections.at(i))].first = std::stoi(numbers[i]);
      }
    } else if (line.starts_with("#")) {
      section = line.starts_with("### ") ? std::stoi(numbers.at(0)) : 0;
    } else if (section != 0 && std::regex_search(line, std::regex("^\\| [0-9]"))) {
      const std::size_t end = line.find('|', line.find('|', 1) + 1);
      const std::vector<std::string> names = findAll(line.substr(0, end), "[A-Za-z]\\w*");
      const std::vector<std::string> fields = findAll(line.substr(0, line.find('|', 1)), "[0-9]+");
      for (std::size_t i = 0; i < fields.size(); ++i) {
        layouts[section].second[std::stoi(fields[i])] = names.at(i);
      }
    }
  }
  return layouts;
}

TEST(Sections, HaveTheFieldsThatTheFormatsPageSays) {
  Layouts expected;
  for (const Section& section : kSections) {
    if (section.fields != nullptr) {
      auto& [width, fields] = expected[section.position];
      width = section.fields->width;
      for (const FieldName& field : section.fields->names) {
        fields[field.number] = field.name;
      }
    }
  }
  EXPECT_EQ(expected.size(), 14U);
  EXPECT_EQ(readPage(), expected);
}

}  // namespace
}  // namespace silrdm
