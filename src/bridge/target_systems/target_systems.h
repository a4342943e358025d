// The target systems: the database systems that an export can name, each in the modelling tool's words, with
// the data store of the host that it stands for.
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

// The catalogue; behind its last entry stands one that is empty.
extern const std::array<targetDatabaseInfo, 86> targetDatabases;

// The catalogue without the empty entry.
std::span<const targetDatabaseInfo> getTargetSystems();

// The entry of exactly that name and version, or null.
const targetDatabaseInfo* findTargetSystem(const VornString& name, const VornString& version);

// The entry for exports that name no system of the catalogue: the tool's own, logical types.
const targetDatabaseInfo& defaultTargetSystem();

}  // namespace silrdm
