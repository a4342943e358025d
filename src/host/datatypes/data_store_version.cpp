#include "host/datatypes/data_store_version.h"

#include <string>

#include "host/datatypes/native_types.h"

VornDataStoreVersion::VornDataStoreVersion(VornString dataStore, int major, int minor, int release)
    : dataStore_(std::move(dataStore)), version_{major, minor, release} {
}

VornDataStoreVersion::~VornDataStoreVersion() = default;

bool VornDataStoreVersion::isSupportedByToolVersion(const VornString& /*toolVersion*/) const {
  return true;
}

std::vector<std::string_view> VornDataStoreVersion::getTypeNames() const {
  return getNativeTypeNames(dataStore_.view(), version_);
}

VornString VornDataStoreVersion::getVersionText() const {
  const auto& [major, minor, release] = version_;
  return VornString(std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(release));
}
