#include "cli/repeated_warnings.h"

#include <utility>

namespace cli {

void RepeatedWarnings::setSubject(std::string_view code, std::string_view name) {
  subjectCode_ = code;
  subject_ = name;
}

bool RepeatedWarnings::add(std::string_view code, std::string_view text) {
  constexpr std::size_t kMost = 1000;  // different ones: texts come from the export
  const std::string subject = code == subjectCode_ ? std::exchange(subject_, {}) : std::string();
  const auto [found, isNew] =
      indexes_.try_emplace(std::string(code).append(" ").append(text), warnings_.size());
  if (!isNew) {
    ++warnings_[found->second].count;
    return true;
  }
  if (warnings_.size() == kMost) {
    indexes_.erase(found);
    return false;
  }
  warnings_.push_back({std::string(code), std::string(text), subject});
  return true;
}

void RepeatedWarnings::flush(
    const std::function<void(const std::string& code, const std::string& text)>& print) {
  indexes_.clear();
  for (const Warning& warning : std::exchange(warnings_, {})) {
    std::string text = warning.text;
    if (warning.count > 1) {
      text += " (" + std::to_string(warning.count) + " times" +
              (warning.subject.empty() ? "" : ", first for '" + warning.subject + "'") + ")";
    } else if (!warning.subject.empty()) {
      text += " (for '" + warning.subject + "')";
    }
    print(warning.code, text);
  }
}

}  // namespace cli
