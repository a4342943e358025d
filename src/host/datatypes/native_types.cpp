#include "host/datatypes/native_types.h"

#include <algorithm>
#include <span>
#include <utility>

namespace {

// One end of a range of versions: "", "7" or "8.1". A number that it leaves out can be any.
class VersionBound {
 public:
  consteval VersionBound(const char* text) {
    for (; *text != '\0'; ++count_) {
      for (; *text >= '0' && *text <= '9'; ++text) {
        parts_[count_] = parts_[count_] * 10 + (*text - '0');
      }
      text += *text == '.' ? 1 : 0;
    }
  }

  constexpr bool isAtOrBelow(const VornDataStoreVersion::Number& version) const {
    return !std::lexicographical_compare(version.begin(), version.begin() + count_, parts_.begin(),
                                         parts_.begin() + count_);
  }
  constexpr bool isAtOrAbove(const VornDataStoreVersion::Number& version) const {
    return !std::lexicographical_compare(parts_.begin(), parts_.begin() + count_, version.begin(),
                                         version.begin() + count_);
  }

 private:
  VornDataStoreVersion::Number parts_{};
  std::size_t count_ = 0;
};

using Key = std::pair<std::string_view, std::string_view>;  // data store, native type name

struct NativeType {
  std::string_view dataStore;
  std::string_view name;
  VersionBound since;
  VersionBound until;
  std::string_view hostType;

  constexpr Key key() const { return {dataStore, name}; }
  constexpr bool isKnownTo(const VornDataStoreVersion::Number& version) const {
    return since.isAtOrBelow(version) && until.isAtOrAbove(version);
  }
};

constexpr NativeType kNativeTypes[] = {
#include "host/datatypes/native_types.inc"
};

static_assert(std::ranges::is_sorted(kNativeTypes, {}, &NativeType::key), "the table is searched by halves");

// The rows whose `part`, by which the table is ordered, is `value`.
template <class Value, class Part>
std::span<const NativeType> findRows(const Value& value, Part part) {
  return {std::ranges::lower_bound(kNativeTypes, value, {}, part),
          std::ranges::upper_bound(kNativeTypes, value, {}, part)};
}

}  // namespace

std::string_view findHostType(std::string_view dataStore, const VornDataStoreVersion::Number& version,
                              std::string_view nativeType) {
  for (const NativeType& type : findRows(Key{dataStore, nativeType}, &NativeType::key)) {
    if (type.isKnownTo(version)) {
      return type.hostType;
    }
  }
  return {};
}

bool isDataStore(std::string_view name) {
  return std::ranges::binary_search(kNativeTypes, name, {}, &NativeType::dataStore);
}

std::vector<std::string_view> getNativeTypeNames(std::string_view dataStore,
                                                 const VornDataStoreVersion::Number& version) {
  std::vector<std::string_view> names;
  for (const NativeType& type : findRows(dataStore, &NativeType::dataStore)) {
    if (type.isKnownTo(version)) {
      names.push_back(type.name);
    }
  }
  return names;
}
