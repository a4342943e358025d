#include "host/metamodel/enumerations.h"

#include "host/base/pemo.h"

namespace {

void requireRange(const char* enumeration, int value, int first, int last) {
  if (value < first || value > last) {
    PEMO::INVALID_ENUMERATION_VALUE.throwException({enumeration, VornString(value)});
  }
}

}  // namespace

void VornClassCategoryType::isValid(int value) {
  requireRange("VornClassCategoryType", value, unspecified, unspecified);
}

void VornViewStatementType::isValid(int value) {
  requireRange("VornViewStatementType", value, unspecified, definition);
}

void VornReferentialActionType::isValid(int value) {
  requireRange("VornReferentialActionType", value, unspecified, setDefault);
}

void VornSortOrderType::isValid(int value) {
  requireRange("VornSortOrderType", value, ascending, descending);
}
