// MarkdownPage: what all parts of a data dictionary are written with: names, links, texts.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/writers/common/relational_model.h"
#include "host/writers/common/texts.h"

class MarkdownPage {
 public:
  // Gives each table and view an anchor. The model must outlive the page.
  MarkdownPage(const RelationalModel& model, bool logicalNames, VornOutputFile& file);

  const bool logical;  // elements go by their logical names
  Utf8Texts texts;

  // Markdown that stands as it is.
  template <class... Parts>
  void add(const Parts&... parts) {
    out_.add(parts...);
  }
  const std::string& getAnchor(const VornClassifier& element) const { return anchors_.at(&element); }

  // The name of an object, or that it has none; the first in bold and with a colon behind it, or nothing.
  void addName(const VornModelObject& object);
  void addNameAndColon(const VornModelObject& object);
  void addNames(const std::vector<const VornAttribute*>& columns);
  // A link to a table or view; null for an end of a relationship that has no table.
  void addLink(const VornClassifier* element);

  // A text of the model on one line; behind a full stop, if there is any; as paragraphs; as SQL.
  void addText(const VornString& text, std::string_view lineBreak = " ");
  void addAside(const VornString& text);
  void addParagraphs(const VornString& text);
  void addStatement(const VornString& text);
  // The same of UTF-8 that is not the model's.
  void addWords(std::string_view utf8);

 private:
  void addAnchor(const VornClassifier& element, std::string anchor);
  bool isBlank(const VornString& name);

  TextOutput out_;
  std::unordered_map<const VornClassifier*, std::string> anchors_;
  std::unordered_set<std::string> taken_;         // anchors
  std::unordered_map<std::string, int> numbers_;  // of those that wanted the same one
};
