#include "host/datatypes/data_stores.h"

#include "host/metamodel/store_model.h"

void addDataStore(VornDataStoreList& list, const VornString& toolVersions,
                  const VornDataStoreVersion& version) {
  list.add({toolVersions, &version});
}

bool setDataStore(VornSystemPackage& package, const VornDataStoreVersion& version) {
  if (version.getDataStore().empty()) {
    return false;
  }
  package.dataStoreName = version.getDataStore();
  package.dataStoreVersion = version.getVersionText();
  return true;
}
