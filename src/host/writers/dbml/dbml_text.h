// What a DBML document is made of: names, strings, types, settings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/writers/common/texts.h"

class DbmlText {
 public:
  explicit DbmlText(VornOutputFile& file) : out_(file) {}

  // Text that needs no escaping.
  template <class... Parts>
  void add(const Parts&... parts) {
    out_.add(parts...);
  }
  // In double quotes, so that it may be any text.
  void addName(std::string_view name);
  // In single quotes; it may have line feeds.
  void addString(std::string_view text);
  // The same as several lines.
  void addLines(const std::vector<std::string>& lines);
  // A type, in quotes where its words need them.
  void addType(std::string_view type);

 private:
  void addEscaped(std::string_view text, char quote);

  TextOutput out_;
};

// The settings of an element, in brackets, once there are any.
class DbmlSettings {
 public:
  explicit DbmlSettings(DbmlText& out) : out_(out) {}

  template <class... Parts>
  void add(const Parts&... parts) {
    out_.add(isFirst_ ? " [" : ", ", parts...);
    isFirst_ = false;
  }
  void end() { out_.add(isFirst_ ? "" : "]"); }

 private:
  DbmlText& out_;
  bool isFirst_ = true;
};
