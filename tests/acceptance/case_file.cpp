#include "case_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>

#include "bridge/pipeline/sections.h"

namespace {

void require(bool holds, const std::string& otherwise) {
  if (!holds) {
    throw std::invalid_argument(otherwise);
  }
}

std::string_view trim(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Cuts off what stands before the next `separator`, which is dropped, or everything when there is none.
std::string_view takeUpTo(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

std::size_t toNumber(std::string_view text, int base = 10) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  require(error == std::errc{} && end == text.data() + text.size(), "no number: " + std::string(text));
  return number;
}

// The bytes of what stands between < and >: of ETX, E9, A*16383.
std::string spell(std::string_view token) {
  static const std::map<std::string_view, char> kNames = {{"STX", '\2'}, {"ETX", '\3'}, {"TAB", '\t'},
                                                          {"LF", '\n'},  {"CR", '\r'},  {"FS", '\x1C'},
                                                          {"SP", ' '},   {"NUL", '\0'}, {"LT", '<'}};
  const std::string_view name = takeUpTo(token, '*');
  const std::size_t count = token.empty() ? 1 : toNumber(token);
  if (const auto found = kNames.find(name); found != kNames.end()) {
    return std::string(count, found->second);
  }
  require(name.size() == 1 || name.size() == 2, "no byte is written <" + std::string(name) + ">");
  return std::string(count, name.size() == 1 ? name.front() : static_cast<char>(toNumber(name, 16)));
}

std::string toBytes(std::string_view text) {
  std::string bytes(takeUpTo(text, '<'));
  while (!text.empty()) {
    bytes += spell(takeUpTo(text, '>'));
    bytes += takeUpTo(text, '<');
  }
  return bytes;
}

// The number of a field of a section by its name, or by the number itself if the import does not use it.
std::size_t findField(std::size_t section, std::string_view name) {
  const silrdm::RecordFields* fields = silrdm::kSections.at(section - 1).fields;
  const auto names = fields == nullptr ? std::span<const silrdm::FieldName>() : fields->names;
  if (const auto field = std::ranges::find(names, name, &silrdm::FieldName::name); field != names.end()) {
    return static_cast<std::size_t>(field->number);
  }
  require(name.find_first_not_of("0123456789") == std::string_view::npos,
          "section " + std::to_string(section) + " has no field " + std::string(name));
  const std::size_t number = toNumber(name);
  require(std::ranges::find(names, static_cast<int>(number), &silrdm::FieldName::number) == names.end(),
          "field " + std::string(name) + " has a name");
  return number;
}

// The record of "schemaId=S | name=Customer": fields in the order of their numbers; those in between are
// empty.
std::string toRecord(std::size_t section, std::string_view fields) {
  std::string record;
  for (std::size_t reached = 0; !fields.empty();) {
    std::string_view value = takeUpTo(fields, '|');
    const std::size_t number = findField(section, trim(takeUpTo(value, '=')));
    require(number > reached, "the fields are out of order");
    record.append(number - std::max<std::size_t>(reached, 1), '\t');
    record += toBytes(trim(value));
    reached = number;
  }
  return record;
}

// The records of "1-9: identifier=<#> | entityId=10", one for each number, which stands in place of <#>; or
// the one of a line that begins with a field.
std::string toRecords(std::size_t section, std::string_view line) {
  if (line.substr(0, line.find('=')).find(':') == std::string_view::npos) {
    return toRecord(section, line) + '\r';
  }
  std::string_view range = takeUpTo(line, ':');
  const std::size_t first = toNumber(takeUpTo(range, '-'));
  const std::size_t last = toNumber(range);
  constexpr std::string_view kPlace = "<#>";
  std::string records;
  for (std::size_t number = first; number <= last; ++number) {
    std::string fields(trim(line));
    for (std::size_t place = fields.find(kPlace); place != std::string::npos; place = fields.find(kPlace)) {
      fields.replace(place, kPlace.size(), std::to_string(number));
    }
    records += toRecord(section, fields) + '\r';
  }
  return records;
}

// The format of "sql oracle logical": a name, then choices in any order.
VornOutputFormat toFormat(std::string_view words) {
  VornOutputFormat format;
  format.name = VornString(takeUpTo(words, ' '));
  while (!words.empty()) {
    const std::string_view choice = takeUpTo(words, ' ');
    if (choice == "logical") {
      format.logicalNames = true;
    } else if (choice == "quoted") {
      format.quoteAll = true;
    } else if (choice == "every-view") {
      format.everyView = true;
    } else if (choice == "drop") {
      format.drops = true;
    } else if (choice == "transaction") {
      format.isTransaction = true;
    } else if (choice == "keep-decimals") {
      format.keepsDecimals = true;
    } else {
      format.dialect = VornString(choice);
    }
  }
  return format;
}

class CaseReader {
 public:
  // A line at the left margin begins a block, whose lines follow its colon or stand indented below it.
  void readLine(int number, std::string_view line) {
    std::string_view words = trim(line);
    if (words.empty() && !case_.outputs.empty()) {
      case_.outputs.back().lines.emplace_back();
    }
    if (words.empty() || words.starts_with('#')) {
      return;
    }
    if (!line.starts_with(' ')) {
      beginBlock(number, takeUpTo(words, ':'));
      words = trim(words);
    }
    require(takeLine_ != nullptr, "an indented line in no block");
    if (!words.empty()) {
      takeLine_(words);
    }
  }

  CaseFile finish() {
    require(!case_.title.empty(), "no title");
    require(case_.failure.empty() != (case_.parts.empty() && case_.outputs.empty()),
            "expects neither a failure nor a model, or both");
    std::string bytes;
    for (std::string& section : sections_) {
      require(section.empty() || !wholeFile_, "has sections beside the whole file");
      section.resize(std::max<std::size_t>(section.size(), 1));
      section.back() = '\x1C';  // ends the last record as well as the section
      bytes += section;
    }
    case_.exportBytes = wholeFile_.value_or(bytes);
    return std::move(case_);
  }

 private:
  void beginBlock(int number, std::string_view head) {
    const std::string_view word = takeUpTo(head, ' ');
    if (word == "title" || word == "option") {
      std::string& text = word == "title" ? case_.title : case_.options.emplace_back(head, "").second;
      takeLine_ = [&text](auto line) {
        require(text.empty(), "takes one line only");
        text = line;
      };
    } else if (word == "section") {
      const std::size_t section = toNumber(head);
      require(section >= 1 && section <= sections_.size(), "no section: " + std::string(head));
      takeLine_ = [section, &records = sections_[section - 1]](auto line) {
        records += toRecords(section, line);
      };
    } else if (word == "bytes") {
      takeLine_ = [&bytes = wholeFile_.emplace()](auto line) { bytes += toBytes(line); };
    } else {
      require(word == "expect", "not understood: " + std::string(word));
      beginExpectation(number, head);
    }
  }

  void beginExpectation(int number, std::string_view what) {
    static const std::map<std::string_view, const char*> kParts = {{"model", ""},
                                                                   {"types", "/types"},
                                                                   {"elements", "/designPackages/0/elements"},
                                                                   {"schemas", "/dataPackages"}};
    if (what == "events") {
      takeLine_ = [&events = case_.events.emplace()](auto line) { events.append(line) += '\n'; };
    } else if (what == "messages" || what == "log" || what == "failure") {
      auto& lines = what == "failure" ? case_.failure : case_.messages;
      case_.withProgress = case_.withProgress || what == "log";
      takeLine_ = [&lines](auto line) { lines.emplace_back(line); };
    } else if (what.starts_with("output ")) {
      case_.outputs.push_back({number, toFormat(what.substr(7)), {}});
      takeLine_ = [this](auto line) { case_.outputs.back().lines.push_back(toBytes(line)); };
    } else {
      const auto part = kParts.find(what);
      require(part != kParts.end(), "nothing can be expected of: " + std::string(what));
      case_.parts.push_back({number, part->second, ""});
      takeLine_ = [this](auto line) { case_.parts.back().json += toBytes(line) + '\n'; };
    }
  }

  CaseFile case_;
  std::array<std::string, 68> sections_;  // each record with a CR behind it
  std::optional<std::string> wholeFile_;
  std::function<void(std::string_view)> takeLine_;  // where the block's next line goes
};

}  // namespace

CaseFile parseCase(const std::string& file, std::string_view text) {
  int number = 0;
  try {
    CaseReader reader;
    while (!text.empty()) {
      reader.readLine(++number, takeUpTo(text, '\n'));
    }
    return reader.finish();
  } catch (const std::invalid_argument& problem) {
    throw std::invalid_argument(file + ':' + std::to_string(number) + ": " + problem.what());
  }
}
