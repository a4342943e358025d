// Warnings for a terminal: equal ones become one line.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace cli {

// Collects warnings until they are printed: in the order in which each text came first, with their count and
// the record that the first one was about.
class RepeatedWarnings {
 public:
  // Names the record that the next warning with this code is about; an empty name is ignored.
  void setSubject(std::string_view code, std::string_view name);

  // Returns false, and does not take the warning, when there are too many different ones already.
  bool add(std::string_view code, std::string_view text);

  // Hands each collected line to `print`, as its code and text, and forgets them.
  void flush(const std::function<void(const std::string& code, const std::string& text)>& print);

 private:
  struct Warning {
    std::string code;
    std::string text;
    std::string subject;
    std::size_t count = 1;
  };

  std::vector<Warning> warnings_;
  std::unordered_map<std::string, std::size_t> indexes_;  // by code and text
  std::string subjectCode_;
  std::string subject_;
};

}  // namespace cli
