#include "host/std/exception.h"

#include <utility>

VornException::VornException(VornSeverity severity, VornString code, VornString text)
    : severity_(severity), code_(std::move(code)), text_(std::move(text)) {
}

VornException::~VornException() = default;
