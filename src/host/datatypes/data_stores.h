// The data stores that a bridge knows, and the one that a model describes.
#pragma once

#include <vector>

#include "host/datatypes/data_store_version.h"

class VornSystemPackage;

// A data store in the versions of a modelling tool that know it.
struct VornDataStore {
  VornString toolVersions;              // "2.4.4 to 2.7.2"
  const VornDataStoreVersion* version;  // owned by the bridge; valid while it is loaded
};

class VornDataStoreList {
 public:
  void add(VornDataStore dataStore) { dataStores_.push_back(std::move(dataStore)); }

  // In the order in which they were added; a data store may occur under several names of the tool.
  auto begin() const { return dataStores_.begin(); }
  auto end() const { return dataStores_.end(); }

 private:
  std::vector<VornDataStore> dataStores_;
};

// Adds a data store to the list.
void addDataStore(VornDataStoreList& list, const VornString& toolVersions,
                  const VornDataStoreVersion& version);

// Says that the package describes that data store. False, and nothing changes, when it is none.
bool setDataStore(VornSystemPackage& package, const VornDataStoreVersion& version);
