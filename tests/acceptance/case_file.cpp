#include "case_file.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <map>

#include "notation.h"

namespace {

// The bytes of an export. What is not set is as in a file that nothing is wrong with.
struct Export {
  static constexpr int kSections = 68;

  std::map<int, std::vector<std::string>> records;  // by section; a section without records is an FS alone
  int sectionCount = kSections;
  std::string recordEnd = "\r";  // between two records; the last one of a section is ended by the FS
  bool lastTerminator = true;
  std::string tail;  // what follows the last section
  std::optional<std::string> wholeFile;

  std::string build() {
    std::string bytes;
    for (int section = 1; section <= sectionCount; ++section) {
      std::string separator;
      for (const std::string& record : records[section]) {
        bytes += std::exchange(separator, recordEnd) + record;
      }
      bytes += '\x1C';
    }
    if (!lastTerminator) {
      bytes.pop_back();
    }
    return wholeFile.value_or(bytes + tail);
  }
};

struct Line {
  int number = 0;
  std::string_view text;
};

// A line at the left margin and the indented lines below it. Comments and empty lines are empty lines.
struct Block {
  Line head;
  std::vector<Line> body;

  std::vector<Line> getLines() const {
    std::vector<Line> lines = body;
    std::erase_if(lines, [](const Line& line) { return line.text.empty(); });
    return lines;
  }
};

std::vector<Block> splitIntoBlocks(std::string_view text) {
  std::vector<Block> blocks;
  for (int number = 1; !text.empty(); ++number) {
    const std::string_view line = takeUpTo(text, '\n');
    const std::string_view words = trim(line).starts_with('#') ? "" : trim(line);
    if (!words.empty() && !line.starts_with(' ')) {
      blocks.push_back({{number, words}, {}});
    } else if (!blocks.empty()) {
      blocks.back().body.push_back({number, words});
    } else if (!words.empty()) {
      throw CaseError(number, "an indented line without a block above it");
    }
  }
  return blocks;
}

// What follows `prefix` in the text.
std::optional<std::string_view> after(std::string_view prefix, std::string_view text) {
  return text.starts_with(prefix) ? std::optional(trim(text.substr(prefix.size()))) : std::nullopt;
}

class CaseReader {
 public:
  CaseFile read(std::string_view text) {
    for (const Block& block : splitIntoBlocks(text)) {
      try {
        readBlock(block);
      } catch (const std::invalid_argument& problem) {
        throw CaseError(line_, problem.what());
      }
    }
    line_ = 1;
    require(!case_.title.empty(), "no title");
    require(case_.failure || !case_.parts.empty(), "expects neither a failure nor anything of the model");
    require(!case_.failure || case_.parts.empty(), "expects a failure and a model");
    require(export_.records.empty() || export_.records.rbegin()->first <= export_.sectionCount,
            "has records behind the end of the file");
    case_.exportBytes = export_.build();
    return std::move(case_);
  }

 private:
  void readBlock(const Block& block) {
    line_ = block.head.number;
    const std::string_view head = block.head.text;
    if (const auto section = after("section ", head)) {
      readSection(*section, block);
    } else if (const auto expectation = after("expect ", head)) {
      readExpectation(*expectation, block);
    } else {
      require(block.getLines().empty(), "takes no indented lines");
      readLine(head);
    }
  }

  void readLine(std::string_view head) {
    if (const auto title = after("title:", head)) {
      case_.title = *title;
    } else if (auto option = after("option ", head)) {
      const std::string_view name = takeUpTo(*option, ':');
      case_.options.emplace_back(name, toBytes(trim(*option)));
    } else if (const auto section = after("cut after section ", head)) {
      export_.sectionCount = toSection(*section);
    } else if (head == "no last terminator") {
      export_.lastTerminator = false;
    } else if (const auto end = after("record end:", head)) {
      export_.recordEnd = toBytes(*end);
    } else if (const auto tail = after("tail:", head)) {
      export_.tail = toBytes(*tail);
    } else if (const auto bytes = after("whole file:", head)) {
      export_.wholeFile = toBytes(*bytes);
    } else {
      require(false, "not understood: " + std::string(head));
    }
  }

  void readSection(std::string_view number, const Block& block) {
    const auto [place, isNew] = export_.records.try_emplace(toSection(number));
    require(isNew, "the section stands here twice");
    for (const Line& line : block.getLines()) {
      line_ = line.number;
      const auto raw = after("raw:", line.text);
      place->second.push_back(line.text == "empty" ? "" : raw ? toBytes(*raw) : toRecord(line.text));
    }
  }

  void readExpectation(std::string_view what, const Block& block) {
    static const std::map<std::string_view, const char*> kParts = {{"model", ""},
                                                                   {"types", "/types"},
                                                                   {"elements", "/designPackages/0/elements"},
                                                                   {"schemas", "/dataPackages"}};
    if (what == "messages" || what == "log") {
      readMessages(what == "log", block);
    } else if (what == "failure") {
      readFailure(block.getLines());
    } else if (const auto part = kParts.find(what); part != kParts.end()) {
      readPart(part->second, block);
    } else {
      require(false, "nothing can be expected of: " + std::string(what));
    }
  }

  void readMessages(bool withProgress, const Block& block) {
    require(!std::exchange(hasMessages_, true), "the messages stand here twice");
    case_.messages = {line_, withProgress, {}};
    for (const Line& line : block.getLines()) {
      case_.messages.messages.emplace_back(line.text);
    }
  }

  void readFailure(const std::vector<Line>& lines) {
    const auto context = lines.size() == 2 ? after("context:", lines[1].text) : "";
    require((lines.size() == 1 || lines.size() == 2) && context,
            "a failure is a message and perhaps its context");
    case_.failure = {line_, std::string(lines[0].text), std::string(*context)};
  }

  void readPart(const char* path, const Block& block) {
    std::string json;
    for (const Line& line : block.body) {
      json += expandRepeats(line.text) + '\n';
    }
    ExpectedPart& part = case_.parts.emplace_back();
    part.line = line_;
    part.path = path;
    if (part.wanted.Parse(json.data(), json.size()).HasParseError()) {
      const std::string_view understood = std::string_view(json).substr(0, part.wanted.GetErrorOffset());
      line_ += 1 + static_cast<int>(std::count(understood.begin(), understood.end(), '\n'));
      require(false, rapidjson::GetParseError_En(part.wanted.GetParseError()));
    }
  }

  int toSection(std::string_view text) const {
    const auto number = toNumber(text);
    require(number && *number >= 1 && *number <= Export::kSections, "no section: " + std::string(text));
    return *number;
  }

  void require(bool holds, const std::string& otherwise) const {
    if (!holds) {
      throw CaseError(line_, otherwise);
    }
  }

  CaseFile case_;
  Export export_;
  bool hasMessages_ = false;
  int line_ = 1;
};

}  // namespace

CaseFile parseCase(std::string_view text) {
  return CaseReader().read(text);
}
