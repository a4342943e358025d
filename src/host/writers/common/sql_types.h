// What a column's type is called in a dialect of SQL.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/writers/common/dialects.h"
#include "host/writers/common/output_format.h"
#include "host/writers/common/type_rules.h"

class VornDerivedType;
class VornStoreModel;
class VornType;

// Returns the dialect's type for a host type ("VARCHAR") with its sizes; sizes below 1 are unknown. Empty for
// an unknown host type.
std::string makeSqlType(std::string_view hostType, int length, int scale, const SqlDialect& dialect);

// "NUMBER(9)" of "NUMBER(9,0)", which says the same.
std::string withoutZeroScale(std::string_view type);

// The types of one model in one dialect, each made once.
class SqlTypes {
 public:
  // Both must outlive it.
  SqlTypes(const SqlDialect& dialect, const VornStoreModel& model, const VornOutputFormat& format);

  // What a column of that type, which may be null, is. Where the type is not known it is the dialect's text
  // of unknown length.
  std::string_view get(const VornType* type) { return find(type).text; }
  // What of the type's values the dialect's cannot hold; empty: nothing, or the type is not known.
  std::string_view getLoss(const VornType* type) { return find(type).loses; }

  // The host type, "VARCHAR"; empty where the type is not known.
  static std::string_view getHostType(const VornType* type);

 private:
  struct Written {
    std::string text;
    std::string_view loses;
  };
  const Written& find(const VornType* type);

  const SqlDialect& dialect_;
  std::string_view store_;
  std::vector<TypeRule> own_;
  bool keepsDecimals_;
  std::unordered_map<const VornType*, Written> types_;
};
