#include "host/writers/markdown/markdown_page.h"

#include <algorithm>

#include "host/writers/markdown/markdown_text.h"

namespace {

constexpr std::string_view kNoName = "(no name)";

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
    anchor.append(texts(getPreferredName(*schema, logical))).append("-");
  }
  anchor = makeMarkdownAnchor(anchor.append(texts(getPreferredName(element, logical))));
  std::string unique = anchor;
  for (int& number = numbers_[anchor]; !taken_.insert(unique).second;) {
    unique = anchor + "-" + std::to_string(++number + 1);
  }
  anchors_[&element] = std::move(unique);
}

bool MarkdownPage::isBlank(const VornString& name) {
  const auto isLetterOrMark = [](char c) { return c > ' ' && c < 127; };
  return std::ranges::none_of(name.view(), isLetterOrMark) && toOneLine(texts(name)).empty();
}

void MarkdownPage::addName(const VornModelObject& object) {
  const VornString& name = getPreferredName(object, logical);
  if (isBlank(name)) {
    out_.add(kNoName);
  } else {
    addText(name);
  }
}

void MarkdownPage::addNameAndColon(const VornModelObject& object) {
  if (const VornString& name = getPreferredName(object, logical); !isBlank(name)) {
    out_.add("**");
    addText(name);
    out_.add("**: ");
  }
}

void MarkdownPage::addNames(const std::vector<const VornAttribute*>& columns) {
  for (const VornAttribute* column : columns) {
    out_.add(column == columns.front() ? "" : ", ");
    addName(*column);
  }
}

void MarkdownPage::addLink(const VornClassifier* element) {
  if (element == nullptr) {
    out_.add("no table");
    return;
  }
  const VornString& name = getPreferredName(*element, logical);
  putMarkdownLink(out_, isBlank(name) ? kNoName : texts(name), getAnchor(*element));
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
