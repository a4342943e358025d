// The steps between the assembly passes and saving.
#pragma once

#include "bridge/import/import.h"

namespace silrdm {

// Counts the records that became objects of the model. Call this before their elements are destroyed.
CountBySection countKeptRecords(Import& import);

// Generates foreign keys from the relationships if the export has candidate keys and no foreign keys. May
// destroy the elements of all objects.
void generateKeys(Import& import);

// Sets aggregations, merges equal types, links views to their sources, adds the metadata origin and converts
// all texts to UTF-8.
void finishModel(Import& import, const VornString& buildVersion);

}  // namespace silrdm
