// VornTargetSystemCatalogue: the database systems that a bridge's inputs can name. A plug-in object may offer
// it beside the import; a host asks for it with dynamic_cast.
#pragma once

#include <vector>

#include "host/base/text.h"

// One system, by the name and version that an input must have exactly.
struct VornTargetSystem {
  VornString name;
  VornString version;           // a text: "7" and "7.0" differ
  VornString dataStore;         // the host's data store for it, "ORACLE"
  VornString dataStoreVersion;  // the release of it, "8.1"
  VornString hostName;          // what the host calls that release, "ORACLE 8.x"
};

class VornTargetSystemCatalogue {
 public:
  virtual ~VornTargetSystemCatalogue();

  virtual std::vector<VornTargetSystem> getTargetSystems() = 0;

 protected:
  VornTargetSystemCatalogue() = default;
  VornTargetSystemCatalogue(const VornTargetSystemCatalogue&) = default;
  VornTargetSystemCatalogue& operator=(const VornTargetSystemCatalogue&) = default;
};
