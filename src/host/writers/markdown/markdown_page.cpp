#include "host/writers/markdown/markdown_page.h"

#include <algorithm>

#include "host/base/pemo.h"
#include "host/writers/markdown/markdown_text.h"

namespace {

constexpr std::string_view kNoName = "(no name)";

// Bytes, in UTF-8, of a name or another text where it is repeated, and of an anchor.
constexpr std::size_t kLongest = 80;

bool hasLetterOrMark(std::string_view ascii) {
  return std::ranges::any_of(ascii, [](char c) { return c > ' ' && c < 127; });
}

bool isBlank(std::string_view utf8) {
  return !hasLetterOrMark(utf8) && toOneLine(utf8).empty();
}

}  // namespace

MarkdownPage::MarkdownPage(const RelationalModel& model, bool logicalNames, VornOutputFile& file)
    : logical(logicalNames), out_(file) {
  for (const VornClass* table : model.tables) {
    addAnchor(*table, "table-");
  }
  for (const VornSQLViewEntity* view : model.views) {
    addAnchor(*view, "view-");
  }
}

void MarkdownPage::addAnchor(const VornClassifier& element, std::string anchor) {
  if (const VornDataPackage* schema = getSchema(element)) {
    anchor.append(getReference(*schema)).append("-");
  }
  anchor.append(getReference(element));
  if (anchor.size() > kLongest) {
    anchor = shortenText(anchor, kLongest);
  }
  anchors_[&element] = unique_.take(makeMarkdownAnchor(anchor), "-", "");
}

std::string_view MarkdownPage::getBrief(const VornString& text) {
  if (text.length() <= kLongest) {
    if (const std::string_view utf8 = texts(text); utf8.size() <= kLongest) {
      return utf8;
    }
  }
  const auto [place, isNew] = briefs_.try_emplace(&text);
  if (isNew) {
    place->second = toOneLine(texts(text));
    if (place->second.size() > kLongest) {
      place->second = shortenText(place->second, kLongest);
      ++shortened_;
    }
  }
  return place->second;
}

bool MarkdownPage::isBlank(const VornString& name) {
  return !hasLetterOrMark(name.view()) && toOneLine(texts(name)).empty();
}

void MarkdownPage::addName(const VornModelObject& object) {
  const VornString& name = getPreferredName(object, logical);
  if (isBlank(name)) {
    out_.add(kNoName);
  } else {
    addText(name);
  }
}

// Marks of bold text must stand next to what no blank begins or ends.
void MarkdownPage::addBoldName(const VornModelObject& object) {
  const VornString& name = getPreferredName(object, logical);
  const std::string line = isBlank(name) ? "" : toOneLine(texts(name));
  const std::string_view words = trimBlanks(line);
  out_.add("**");
  putMarkdown(out_, words.empty() ? kNoName : words);
  out_.add("**");
}

void MarkdownPage::addNameAndColon(const VornModelObject& object) {
  if (!isBlank(getPreferredName(object, logical))) {
    addBoldName(object);
    out_.add(": ");
  }
}

void MarkdownPage::addReference(const VornModelObject& object) {
  const std::string_view name = getReference(object);
  putMarkdown(out_, ::isBlank(name) ? kNoName : name);
}

void MarkdownPage::addReferences(const std::vector<const VornAttribute*>& columns) {
  for (const VornAttribute* column : columns) {
    out_.add(column == columns.front() ? "" : ", ");
    addReference(*column);
  }
}

void MarkdownPage::addLink(const VornClassifier* element) {
  if (element == nullptr) {
    out_.add("no table");
    return;
  }
  const std::string_view name = getReference(*element);
  putMarkdownLink(out_, ::isBlank(name) ? kNoName : name, getAnchor(*element));
}

void MarkdownPage::addText(const VornString& text, std::string_view lineBreak) {
  putMarkdown(out_, texts(text), lineBreak);
}

void MarkdownPage::addAside(const VornString& text) {
  if (!text.empty()) {
    out_.add(". ");
    addText(text);
  }
}

void MarkdownPage::addRepeatedText(const VornString& text, bool isWhole, std::string_view lineBreak) {
  if (isWhole) {
    addText(text, lineBreak);
  } else {
    putMarkdown(out_, getBrief(text), lineBreak);
  }
}

void MarkdownPage::addRepeatedAside(const VornString& text, bool isWhole) {
  if (!text.empty()) {
    out_.add(". ");
    addRepeatedText(text, isWhole, " ");
  }
}

void MarkdownPage::addParagraphs(const VornString& text) {
  if (!text.empty()) {
    putMarkdownParagraphs(out_, texts(text));
  }
}

void MarkdownPage::addStatement(const VornString& text) {
  if (!text.empty()) {
    putMarkdownCode(out_, texts(text), "sql");
  }
}

void MarkdownPage::addWords(std::string_view utf8) {
  putMarkdown(out_, utf8);
}

void MarkdownPage::tellOf(VornLog& log) const {
  texts.tellOf(log);
  if (shortened_ > 0) {
    PEMO::NAMES_SHORTENED.log(log, {VornString(static_cast<std::int32_t>(shortened_))});
  }
}
