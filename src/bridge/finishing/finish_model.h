// What follows the assembly passes: the model is finished, so that it can be saved.
#pragma once

#include "bridge/import/import.h"

namespace silrdm {

// The records by section that objects of the model were made from. To be called while they still have their
// elements.
CountBySection countKeptRecords(Import& import);

// For exports that have candidate keys alone: generates the foreign keys that follow from the relationships.
// Host objects may have lost their elements afterwards.
void generateKeys(Import& import);

// Sets aggregations, merges types, ties views to what they read, notes where the model came from and converts
// its texts to UTF-8.
void finishModel(Import& import, const VornString& buildVersion);

}  // namespace silrdm
