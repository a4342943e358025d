// The enumerations of the metamodel. `isValid` throws PEMO::INVALID_ENUMERATION_VALUE for a number that is
// none of the values: call it on a number before it is stored.
#pragma once

#include <cstdint>

struct VornClassCategoryType {
  enum Value : std::uint8_t { unspecified = 0 };
  static void isValid(int value);
};

struct VornViewStatementType {
  enum Value : std::uint8_t { unspecified = 0, definition = 1 };
  static void isValid(int value);
};

struct VornReferentialActionType {
  enum Value : std::uint8_t {
    unspecified = 0,
    none = 1,
    cascade = 2,
    restrict = 3,
    setNull = 4,
    setDefault = 5
  };
  static void isValid(int value);
};

struct VornSortOrderType {
  enum Value : std::uint8_t { ascending = 1, descending = 2 };
  static void isValid(int value);
};

struct VornAggregationType {
  enum Value : std::uint8_t { none = 0, composite = 1 };
};
