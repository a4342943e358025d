// What follows the assembly passes: the model is finished, so that it can be saved.
#pragma once

#include "host/base/text.h"

namespace silrdm {

// For exports that have candidate keys alone: generates the foreign keys that follow from the relationships.
// Host objects may have lost their elements afterwards.
void generateKeys();

// Sets aggregations, merges types, ties views to what they read, notes where the model came from and turns
// its texts from `encoding`, a choice of the option "Encoding", into UTF-8. `identifier` is the caller's name
// for the import.
void finishModel(const VornString& identifier, const VornString& encoding);

}  // namespace silrdm
