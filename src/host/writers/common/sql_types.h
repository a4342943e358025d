// What a column's type is called in a dialect of SQL.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "host/writers/common/dialects.h"

class VornDerivedType;
class VornType;

// The dialect's word for a host type ("VARCHAR") with its sizes, of which those below 1 are not known; what
// is too large for it becomes the next larger type, or the largest of its kind. Empty for a host type that
// there is not.
std::string makeSqlType(std::string_view hostType, int length, int scale, const SqlDialect& dialect);

// "NUMBER(9)" of "NUMBER(9,0)", which says the same.
std::string withoutZeroScale(std::string_view type);

// The types of one model in one dialect, each made once.
class SqlTypes {
 public:
  explicit SqlTypes(const SqlDialect& dialect) : dialect_(dialect) {}

  // What a column of that type, which may be null, is. Where the type is not known it is the dialect's text
  // of unknown length.
  std::string_view get(const VornType* type);

  // The host type, "VARCHAR"; empty where the type is not known.
  static std::string_view getHostType(const VornType* type);

 private:
  const SqlDialect& dialect_;
  std::unordered_map<const VornType*, std::string> types_;
};
