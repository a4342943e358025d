// What a host type is called where the data store does not matter.
#pragma once

#include "host/base/text.h"

// The host type of what no table knows.
inline constexpr const char* kUndefinedType = "undefined";

// Returns the logical name of a host type: "String" for VARCHAR. A type without one is its own.
VornString getDefaultLogicalName(const VornString& hostType);

// Whether it is the host type of what no table knows: exactly "undefined".
bool isUndefined(const VornString& hostType);
