#include "cli/import_log.h"

#include <unistd.h>

#include <iostream>

#include "host/base/unicode.h"

namespace cli {

ImportLog::ImportLog(std::ostream& stream, bool showsProgress)
    : VornStreamLog(stream),
      isOnTerminal_(&stream == &std::cerr && ::isatty(STDERR_FILENO) == 1),
      bar_(showsProgress) {
}

void ImportLog::finish() {
  bar_.clear();
  warnings_.flush([this](const std::string& code, const std::string& text) {
    VornStreamLog::put(VornSeverity::warning, VornString(code), VornString(text));
  });
}

CountsByName ImportLog::getWarningsByCode() const {
  return counting_ ? counting_->warnings : CountsByName();
}

void ImportLog::nameNextWarning(std::string_view code, std::string_view name) {
  if (groupsWarnings()) {
    warnings_.setSubject(code, name);
  }
}

void ImportLog::put(VornSeverity severity, const VornString& code, const VornString& text) {
  if (hidesSteps_ && severity == VornSeverity::status && !code.view().starts_with("VORN_")) {
    return;
  }
  if (severity <= VornSeverity::error) {
    error_ = std::string(code.view()) + " " + toPrintableLine(text.view());
  }
  if (counting_) {
    if (severity == VornSeverity::warning) {
      ++counting_->warnings[std::string(code.view())];
    }
    if (severity > counting_->shown) {
      return;
    }
  }
  if (severity == VornSeverity::warning && groupsWarnings() && warnings_.add(code.view(), text.view())) {
    return;
  }
  bar_.clear();
  if (severity <= VornSeverity::error) {
    finish();
  }
  VornStreamLog::put(severity, code, text);
}

}  // namespace cli
