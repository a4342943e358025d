// MarkdownPage: what all parts of a data dictionary are written with: names, links, texts.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/writers/common/relational_model.h"
#include "host/writers/common/texts.h"

class VornLog;

class MarkdownPage {
 public:
  // Gives each table and view an anchor. The model must outlive the page.
  MarkdownPage(const RelationalModel& model, bool logicalNames, VornOutputFile& file);

  const bool logical;  // elements go by their logical names
  Utf8Texts texts;

  // Adds Markdown without escaping it.
  template <class... Parts>
  void add(const Parts&... parts) {
    out_.add(parts...);
  }
  const std::string& getAnchor(const VornClassifier& element) const { return anchors_.at(&element); }

  // The name of an object where it is described, or a note that it has none; the same in bold; in bold
  // followed by a colon, or nothing.
  void addName(const VornModelObject& object);
  void addBoldName(const VornModelObject& object);
  void addNameAndColon(const VornModelObject& object);
  // The name where the object is referred to: a long one is shortened.
  void addReference(const VornModelObject& object);
  // The same as UTF-8, without the escapes; valid until the next call of any function.
  std::string_view getReference(const VornModelObject& object) {
    return getBrief(getPreferredName(object, logical));
  }
  void addReferences(const std::vector<const VornAttribute*>& columns);
  // A link to a table or view; null for an end of a relationship that has no table.
  void addLink(const VornClassifier* element);

  // A text of the model on one line; after a full stop, if not empty; as paragraphs; as SQL.
  void addText(const VornString& text, std::string_view lineBreak = " ");
  void addAside(const VornString& text);
  // The same for a text that is repeated: it is whole in one place.
  void addRepeatedAside(const VornString& text, bool isWhole);
  void addRepeatedText(const VornString& text, bool isWhole, std::string_view lineBreak);
  void addParagraphs(const VornString& text);
  void addStatement(const VornString& text);
  // The same of UTF-8 that is not the model's.
  void addWords(std::string_view utf8);

  // The warnings, at the end.
  void tellOf(VornLog& log) const;

 private:
  void addAnchor(const VornClassifier& element, std::string anchor);
  bool isBlank(const VornString& name);
  // The text as UTF-8, on one line and shortened where it is long; valid until the next call, or of `texts`.
  std::string_view getBrief(const VornString& text);

  TextOutput out_;
  std::unordered_map<const VornClassifier*, std::string> anchors_;
  UniqueTexts unique_;                                         // anchors
  std::unordered_map<const VornString*, std::string> briefs_;  // of long names and texts
  std::size_t shortened_ = 0;                                  // of these, those that lost something
};
