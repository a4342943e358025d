#include "host/base/exception.h"

#include <utility>

VornException::VornException(VornFault fault, VornSeverity severity, VornString code, VornString text)
    : fault_(fault),
      severity_(severity),
      code_(std::move(code)),
      text_(std::move(text)),
      what_(code_ + " " + text_) {
}

void VornException::setContext(VornString context) {
  context_ = std::move(context);
  what_ = code_ + " " + getFullText();
}

VornException VornException::withContext(const VornString& context) const {
  VornException copy = *this;
  copy.setContext(context);
  return copy;
}

VornString VornException::getFullText() const {
  return context_.empty() ? text_ : text_ + " (" + context_ + ")";
}
