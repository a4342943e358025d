#include "host/writers/mermaid/mermaid_writer.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "host/base/pemo.h"
#include "host/metamodel/casting.h"
#include "host/writers/common/named_model.h"
#include "host/writers/common/relationships.h"

namespace {

// What Mermaid draws unless its settings say otherwise: UTF-16 units of text, and edges.
constexpr std::size_t kTextLimit = 50'000;
constexpr std::size_t kEdgeLimit = 500;
// Kept free for the comments that tell what was left out; and for edges, where there are too many tables.
constexpr std::size_t kCommentRoom = 500;
constexpr std::size_t kEdgeRoom = 15'000;

constexpr std::size_t kCommentLength = 80;  // bytes of a description
constexpr std::size_t kTitleLength = 500;
constexpr std::size_t kNameLength = 500;  // of a relationship's; tables' are shorter

enum class Detail : std::uint8_t { everything, noComments, keysOnly, noColumns };

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isWordByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_';
}

std::size_t countUtf16(std::string_view utf8) {
  std::size_t units = 0;
  for (const char byte : utf8) {
    const auto bits = static_cast<unsigned char>(byte);
    units += (bits & 0xC0) == 0x80 ? 0 : bits >= 0xF0 ? 2 : 1;
  }
  return units;
}

// One-line text for between quotes: what Mermaid takes for its own, or for markup, becomes the number of the
// character ("#35;"), which it shows as what it was.
std::string escape(std::string_view text) {
  // Mermaid obeys "direction TB" wherever it stands in a line.
  constexpr std::string_view kDirection = "direction";
  const auto isDirection = [&](std::size_t place) {
    return text.size() - place >= kDirection.size() &&
           std::ranges::equal(text.substr(place, kDirection.size()), kDirection,
                              [](char a, char b) { return (a | 0x20) == b; });
  };
  // These it puts around the number of a character while it works: "\uFB02\u00B0\u00B035\u00B6\u00DF".
  constexpr std::string_view kBegin = "\uFB02";
  constexpr std::string_view kEnd = "\u00B6";
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (std::string_view("\"#%&*<>\\`~").find(text[i]) != std::string_view::npos || isDirection(i)) {
      escaped.append("#").append(std::to_string(text[i])).append(";");
    } else if (text.substr(i).starts_with(kBegin)) {
      escaped += "#64258;";
      i += kBegin.size() - 1;
    } else if (text.substr(i).starts_with(kEnd)) {
      escaped += "#182;";
      i += kEnd.size() - 1;
    } else {
      escaped += text[i];
    }
  }
  return escaped;
}

// A type or a column's name, which Mermaid knows by their letters: everything else becomes '_' or, for a
// comma, '-'.
std::string makeWord(std::string_view text) {
  std::string word;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char lead = text[i];
    if ((lead & 0x80) == 0) {
      const bool fits = isWordByte(lead) || lead == '(' || lead == ')' || lead == '-';
      word += fits ? lead : lead == ',' ? '-' : '_';
    } else if (lead == '\xC2') {  // up to U+00BF
      word += '_';
      ++i;
    } else if (const std::string_view character = text.substr(i, 3);
               character.starts_with("\xE2\x80") || character.starts_with("\xE2\x81") ||
               character == "\u1680" || character == "\u3000") {  // blanks and punctuation
      word += '_';
      i += 2;
    } else {
      word += lead;
    }
  }
  const bool isKeyMark = word.size() >= 2 &&
                         std::string_view("PpFfUu").find(word[0]) != std::string_view::npos &&
                         (word[1] | 0x20) == 'k' && (word.size() == 2 || !isWordByte(word[2]));
  const bool isWord = !word.empty() && ((word[0] & 0x80) != 0 || (isWordByte(word[0]) && !isDigit(word[0])));
  if (isKeyMark || !isWord) {
    word.insert(0, "_");
  }
  return word;
}

// Up to its version 11.12 Mermaid takes no comma in a type, and then draws nothing: between sizes stands a
// character that looks like one.
std::string makeTypeWord(const std::string& type) {
  constexpr std::string_view kComma = "\u201A";
  std::string word = makeWord(type);
  for (std::size_t i = word.find('-'); i != std::string::npos; i = word.find('-', i)) {
    word.replace(i, 1, kComma);
  }
  return word;
}

std::string quoteForYaml(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    quoted.append(c == '"' || c == '\\' ? "\\" : "").append(1, c);
  }
  return quoted + '"';
}

std::string_view getLeftEnd(const EndCount& count) {
  return count.isMany ? (count.isOptional ? "}o" : "}|") : (count.isOptional ? "|o" : "||");
}
std::string_view getRightEnd(const EndCount& count) {
  return count.isMany ? (count.isOptional ? "o{" : "|{") : (count.isOptional ? "o|" : "||");
}

class MermaidWriter {
 public:
  MermaidWriter(const VornStoreModel& model, const VornOutputFormat& format)
      : model_(model, format), diagram_(makeDiagram(model_.elements)) {
    const auto& tables = model_.elements.tables;
    hasSchemas_ = std::ranges::any_of(
        tables, [&](const VornClass* table) { return getSchema(*table) != getSchema(*tables.front()); });
    for (const VornClass* table : tables) {
      nameEntity(*table);
    }
    for (const VornRelationship* hub : diagram_.hubs) {
      nameEntity(*hub);
    }
  }

  // The text is within the limits, so it may stand in memory.
  void write(VornOutputFile& file, VornLog& log) {
    const std::string header = makeHeader();
    const std::size_t room = kTextLimit - kCommentRoom - countUtf16(header);
    shown_.insert(entityOrder_.begin(), entityOrder_.end());
    std::string edges = makeEdges(room);
    std::string entities;
    for (const Detail detail :
         {Detail::everything, Detail::noComments, Detail::keysOnly, Detail::noColumns}) {
      detail_ = detail;
      entities = makeEntities(room - countUtf16(edges));
      if (shown_.size() == entityOrder_.size()) {
        break;
      }
    }
    if (shown_.size() < entityOrder_.size()) {
      entities = makeEntities(room - std::min(kEdgeRoom, countUtf16(edges)));
      edges = makeEdges(room - countUtf16(entities));
    }
    const std::string comments = makeComments();
    TextOutput(file).add(header, comments, entities, edges);
    if (const std::string lost = describeLost(); !lost.empty()) {
      PEMO::DIAGRAM_TOO_LARGE.log(log, {VornString("mermaid"), VornString(lost)});
    }
    model_.tellOf(log);
  }

 private:
  std::string makeHeader() {
    const std::string title = model_.line(model_.model.getName());
    return (title.empty() ? "" : "---\ntitle: " + quoteForYaml(cutUtf8(title, kTitleLength)) + "\n---\n") +
           "erDiagram\n";
  }

  // An entity is known by its text alone, so two must not have the same.
  void nameEntity(const VornModelElement& element) {
    std::string name;
    if (const VornDataPackage* schema = getSchema(element); schema != nullptr && hasSchemas_) {
      name.append(model_.names.get(*schema)).append(".");
    }
    if (element.getElementType() == VornElementType::classType) {
      name += model_.names.get(element);
    } else {
      name += model_.lineOfName(element);
    }
    name = escape(name.empty() ? "relationship" : cutUtf8(name, kNameLength));
    entities_[&element] = unique_.take(name, " (", ")");
    entityOrder_.push_back(&element);
  }

  // The texts of as many entities as there is room for. What does not fit because it alone is too large makes
  // place for those behind it.
  std::string makeEntities(std::size_t room) {
    std::string text;
    shown_.clear();
    std::size_t used = 0;
    for (const VornModelElement* element : entityOrder_) {
      const std::string entity = makeEntity(*element);
      const std::size_t size = countUtf16(entity);
      if (size <= room - used) {
        used += size;
        text += entity;
        shown_.insert(element);
      } else if (detail_ != Detail::noColumns) {
        break;
      }
    }
    return text;
  }

  std::string makeEntity(const VornModelElement& element) {
    std::string text = "  \"" + entities_.at(&element) + "\"";
    std::string columns;
    if (detail_ != Detail::noColumns && element.getElementType() == VornElementType::classType) {
      const auto& table = cast<VornClass>(element);
      const KeyMarks marks(table);
      for (const VornAttribute* column : getColumns(table)) {
        const std::string_view keys = marks.get(*column);
        if (!keys.empty() || detail_ != Detail::keysOnly) {
          columns += makeColumn(*column, keys);
        }
      }
    }
    return text + (columns.empty() ? "\n" : " {\n" + columns + "  }\n");
  }

  std::string makeColumn(const VornAttribute& column, std::string_view keys) {
    const std::string_view name = model_.names.get(column);
    const std::string word = makeWord(name);
    std::string text = "    " + makeTypeWord(model_.typeOf(column)) + " " + word;
    text.append(keys.empty() ? "" : " ").append(keys);
    std::string comment = word == name ? "" : std::string(name);
    if (detail_ == Detail::everything) {
      // What is in a primary key is required anyway.
      if (!column.optional && !keys.starts_with("PK")) {
        comment += comment.empty() ? "required" : " (required)";
      }
      if (const std::string words = shorten(model_.line(column.description)); !words.empty()) {
        comment += (comment.empty() ? "" : ": ") + words;
      }
    }
    return text + (comment.empty() ? "\n" : " \"" + escape(comment) + "\"\n");
  }
  static std::string shorten(const std::string& text) {
    return text.size() <= kCommentLength ? text : std::string(cutUtf8(text, kCommentLength)) + "...";
  }

  // The texts of as many edges as there is room for, of those whose entities are both shown.
  std::string makeEdges(std::size_t room) {
    std::string text;
    shownEdges_ = 0;
    std::size_t used = 0;
    for (const DiagramEdge& edge : diagram_.edges) {
      if (shownEdges_ == kEdgeLimit) {
        break;
      }
      if (!shown_.contains(edge.from) || !shown_.contains(edge.to)) {
        continue;
      }
      const std::string line = makeEdge(edge);
      const std::size_t size = countUtf16(line);
      if (size <= room - used) {
        used += size;
        text += line;
        ++shownEdges_;
      }
    }
    return text;
  }

  std::string makeEdge(const DiagramEdge& edge) {
    const bool isInheritance = edge.kind == DiagramEdge::Kind::inheritance;
    std::string text = "  \"" + entities_.at(edge.from) + "\" ";
    text.append(getLeftEnd(edge.atFrom))
        .append(edge.isIdentifying ? "--" : "..")
        .append(getRightEnd(edge.atTo));
    return text + " \"" + entities_.at(edge.to) + "\" : \"" +
           (isInheritance ? "is a" : escape(model_.line(getLabel(edge, model_.logical)))) + "\"\n";
  }

  // What the limits left no room for.
  std::string describeLost() const {
    constexpr std::string_view kWords[] = {"", "comments", "comments, columns of no key", "columns"};
    std::string lost(kWords[static_cast<std::size_t>(detail_)]);
    const auto add = [&](std::size_t count, std::string_view what) {
      if (count > 0) {
        lost.append(lost.empty() ? "" : ", ").append(std::to_string(count)).append(what);
      }
    };
    add(entityOrder_.size() - shown_.size(), " of the tables");
    add(diagram_.edges.size() - shownEdges_, " of the relationships");
    return lost;
  }
  std::string makeComments() const {
    std::string text;
    if (!model_.elements.views.empty()) {
      text += "  %% Views that are not shown: " + std::to_string(model_.elements.views.size()) + "\n";
    }
    if (const std::string lost = describeLost(); !lost.empty()) {
      text += "  %% Left out, because Mermaid draws only so much: " + lost + "\n";
    }
    return text;
  }

  NamedModel model_;
  Diagram diagram_;
  std::vector<const VornModelElement*> entityOrder_;
  std::unordered_map<const VornModelElement*, std::string> entities_;  // by their escaped names
  UniqueTexts unique_;                                                 // of those names
  bool hasSchemas_ = false;  // more than one, so that names need them
  Detail detail_ = Detail::everything;
  std::unordered_set<const VornModelElement*> shown_;
  std::size_t shownEdges_ = 0;
};

}  // namespace

void writeModelAsMermaid(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                         VornLog& log) {
  MermaidWriter(model, format).write(file, log);
}
