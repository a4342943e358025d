// What the typing passes share.
#pragma once

#include "host/metamodel/type.h"

namespace silrdm {

class Import;

// Appends the sizes to the type's name: "Amount" becomes "Amount_10_2", or "Amount_10" if the scale is 0, or
// stays the same if the length is 0. The physical name becomes the data type with the same suffix.
void applySizeSuffix(VornDerivedType& type, const VornString& dataType, std::int32_t length,
                     std::int32_t scale);

// Returns the model's base type for the data type; creates it if necessary.
VornBaseType& baseTypeFor(Import& import, const VornString& dataType);

}  // namespace silrdm
