#include "host/base/log.h"

#include "host/base/unicode.h"

VornLog::~VornLog() = default;

void VornLog::write(VornSeverity severity, const VornString& code, const VornString& text) {
  ++counts_[static_cast<std::size_t>(severity)];
  if (isEnabled(severity)) {
    put(severity, code, text);
  }
}

void VornStreamLog::put(VornSeverity severity, const VornString& code, const VornString& text) {
  std::string line(getSeverityName(severity));
  line.append(" ").append(code.view()).append(" ").append(toPrintableLine(text.view())).append("\n");
  stream_ << line;
}
