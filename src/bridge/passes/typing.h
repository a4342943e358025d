// What the typing passes share.
#pragma once

#include "host/metamodel/type.h"

namespace silrdm {

class Import;

// Puts the sizes behind the type's name: "Amount" becomes "Amount_10_2", or "Amount_10" with a scale of 0, or
// stays without a length; its physical name becomes the data type followed by the same.
void applySizeSuffix(VornDerivedType& type, const VornString& dataType, std::int32_t length,
                     std::int32_t scale);

// The model's base type for the data type, made on first need.
VornBaseType& baseTypeFor(Import& import, const VornString& dataType);

}  // namespace silrdm
