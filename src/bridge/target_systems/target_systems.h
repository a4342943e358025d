// Target systems: the database systems that an export can name, as the modelling tool calls them, and the
// host's data store for each.
#pragma once

#include <array>
#include <span>

#include "host/base/text.h"
#include "host/datatypes/data_store_version.h"

// One entry of the catalogue.
struct targetDatabaseInfo : VornDataStoreVersion {
  targetDatabaseInfo(VornString name, VornString version, VornString hostName, VornString dataStore,
                     int major, int minor, int release);

  VornString systemName;            // as the export writes it
  VornString systemVersion;         // likewise; a text, so that "7" and "7.0" differ
  VornString dataStoreVersionName;  // what the host calls this version of the data store
};

namespace silrdm {

// The catalogue, with an empty entry at the end.
extern const std::array<targetDatabaseInfo, 86> targetDatabases;

// The catalogue without the empty entry.
std::span<const targetDatabaseInfo> getTargetSystems();

// Returns the entry with exactly that name and version, or null.
const targetDatabaseInfo* findTargetSystem(const VornString& name, const VornString& version);

// The entry for exports without a known system: the tool's logical types.
const targetDatabaseInfo& defaultTargetSystem();

}  // namespace silrdm
