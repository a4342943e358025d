#include "host/datatypes/logical_types.h"

#include <algorithm>
#include <string_view>

namespace {

struct LogicalType {
  std::string_view hostType;
  const char* logicalName;
};

// In byte order of the host types.
constexpr LogicalType kLogicalTypes[] = {
    {"ARRAY", "Object"},
    {"BFILE", "Binary"},
    {"BIGINT", "Integer"},
    {"BINARY", "Binary"},
    {"BIT", "Binary"},
    {"BIT VARYING", "Binary"},
    {"BLOB", "Binary"},
    {"BOOLEAN", "Boolean"},
    {"CHAR", "String"},
    {"CLOB", "Text"},
    {"DATE", "Date"},
    {"DATETIME", "Timestamp"},
    {"DBCLOB", "Text"},
    {"DECIMAL", "Decimal"},
    {"DOUBLE PRECISION", "Float"},
    {"FLOAT", "Float"},
    {"GRAPHIC", "String"},
    {"INTEGER", "Integer"},
    {"INTERVAL DAY TO SECOND", "Interval"},
    {"INTERVAL YEAR TO MONTH", "Interval"},
    {"MONEY", "Decimal"},
    {"NCHAR", "String"},
    {"NCLOB", "Text"},
    {"NUMERIC", "Decimal"},
    {"NVARCHAR", "String"},
    {"OBJECT", "Object"},
    {"REAL", "Float"},
    {"ROWID", "Identifier"},
    {"ROWVERSION", "Binary"},
    {"SERIAL", "Integer"},
    {"SMALLDATETIME", "Timestamp"},
    {"SMALLINT", "Integer"},
    {"SMALLMONEY", "Decimal"},
    {"TIME", "Time"},
    {"TIME WITH TIME ZONE", "Time"},
    {"TIMESTAMP", "Timestamp"},
    {"TIMESTAMP WITH TIME ZONE", "Timestamp"},
    {"TINYINT", "Integer"},
    {"UUID", "Identifier"},
    {"VARBINARY", "Binary"},
    {"VARCHAR", "String"},
    {"VARGRAPHIC", "String"},
    {"XML", "Xml"},
};

static_assert(std::ranges::is_sorted(kLogicalTypes, {}, &LogicalType::hostType));

}  // namespace

VornString getDefaultLogicalName(const VornString& hostType) {
  const auto* found = std::ranges::lower_bound(kLogicalTypes, hostType.view(), {}, &LogicalType::hostType);
  const bool isListed = found != std::end(kLogicalTypes) && found->hostType == hostType.view();
  return isListed ? VornString(found->logicalName) : hostType;
}

bool isUndefined(const VornString& hostType) {
  return hostType.view() == kUndefinedType;
}
