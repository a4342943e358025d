// VornDataStoreVersion: one version of one kind of database system.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "host/base/text.h"

class VornDataStoreVersion {
 public:
  using Number = std::array<int, 3>;  // major, minor, release

  // `dataStore` is one of the data stores of VornDataTypeConstants, or empty for none.
  VornDataStoreVersion(VornString dataStore, int major, int minor, int release);
  VornDataStoreVersion(const VornDataStoreVersion&) = default;
  VornDataStoreVersion& operator=(const VornDataStoreVersion&) = default;
  virtual ~VornDataStoreVersion();

  // Whether a tool of that version can describe this data store. Unless overridden, each can.
  virtual bool isSupportedByToolVersion(const VornString& toolVersion) const;
  // The type names that this version of the data store knows, in byte order.
  virtual std::vector<std::string_view> getTypeNames() const;

  const VornString& getDataStore() const { return dataStore_; }
  const Number& getVersion() const { return version_; }
  // "8.1.0"
  VornString getVersionText() const;

 private:
  VornString dataStore_;
  Number version_;
};
