// The type tables of all data stores: the host type for each native type name. The build turns
// native_types.tsv into a constant array, so nothing is initialized at program start.
#pragma once

#include <string_view>
#include <vector>

#include "host/datatypes/data_store_version.h"

// The host type of the name, exactly as the table has it, in that version of the data store; empty when there
// is none. Logarithmic in the size of the table.
std::string_view findHostType(std::string_view dataStore, const VornDataStoreVersion::Number& version,
                              std::string_view nativeType);

// Whether there is a data store of that name.
bool isDataStore(std::string_view name);

// The names that a version of a data store knows, in byte order.
std::vector<std::string_view> getNativeTypeNames(std::string_view dataStore,
                                                 const VornDataStoreVersion::Number& version);
