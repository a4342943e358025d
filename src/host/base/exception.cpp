#include "host/base/exception.h"

#include <utility>

VornException::VornException(VornSeverity severity, VornString code, VornString text)
    : severity_(severity), code_(std::move(code)), text_(std::move(text)) {
}

VornException::~VornException() = default;

VornException VornException::withContext(const VornString& context) const {
  VornException copy = *this;
  copy.setContext(context);
  return copy;
}

VornString VornException::getFullText() const {
  return context_.empty() ? text_ : text_ + " (" + context_ + ")";
}
