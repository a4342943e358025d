#include "host/writers/sql/type_facts.h"

#include <algorithm>
#include <charconv>

namespace {

// Types whose values can be compared. A column can refer to one of the same family and of the same or a
// higher rank. What is not here can refer to columns of the very same type alone.
struct TypeFamily {
  std::string_view dialects;
  std::string_view type;  // without its arguments
  int family;
  int rank;
};
constexpr TypeFamily kTypeFamilies[] = {
    {"ansi postgresql", "SMALLINT", 1, 1},
    {"ansi postgresql", "INTEGER", 1, 1},
    {"ansi postgresql", "BIGINT", 1, 1},
    {"ansi postgresql", "DECIMAL", 1, 2},
    {"ansi postgresql", "NUMERIC", 1, 2},
    {"ansi postgresql", "REAL", 1, 3},
    {"ansi postgresql", "FLOAT", 1, 3},
    {"ansi postgresql", "DOUBLE PRECISION", 1, 3},
    {"ansi postgresql", "CHAR", 2, 1},
    {"ansi postgresql", "VARCHAR", 2, 1},
    {"ansi postgresql", "TEXT", 2, 1},
    {"ansi postgresql", "CHARACTER", 2, 1},
    {"ansi postgresql", "CHARACTER VARYING", 2, 1},
    {"ansi postgresql", "DATE", 3, 1},
    {"ansi postgresql", "TIME", 4, 1},
    {"ansi postgresql", "TIMESTAMP", 3, 1},
    {"ansi postgresql", "TIMESTAMP WITH TIME ZONE", 3, 1},
    {"ansi postgresql", "BIT", 5, 1},
    {"ansi postgresql", "BIT VARYING", 5, 1},
    // Numbers must be of the same size, texts of the same character set.
    {"mysql", "CHAR", 1, 1},
    {"mysql", "VARCHAR", 1, 1},
    {"mysql", "NCHAR", 2, 1},
    {"mysql", "NVARCHAR", 2, 1},
    {"mysql", "BINARY", 3, 1},
    {"mysql", "VARBINARY", 3, 1},
    // Lengths and precisions may differ.
    {"oracle db2", "NUMBER", 1, 1},
    {"oracle db2", "DECIMAL", 2, 1},
    {"oracle db2", "NUMERIC", 2, 1},
    {"oracle db2", "VARCHAR2", 3, 1},
    {"oracle db2", "NVARCHAR2", 4, 1},
    {"oracle db2", "CHAR", 5, 1},
    {"oracle db2", "VARCHAR", 6, 1},
    {"oracle db2", "NCHAR", 7, 1},
    {"oracle db2", "NVARCHAR", 8, 1},
    {"oracle db2", "GRAPHIC", 9, 1},
    {"oracle db2", "VARGRAPHIC", 10, 1},
    {"oracle db2", "RAW", 11, 1},
    {"oracle db2", "BINARY", 12, 1},
    {"oracle db2", "VARBINARY", 13, 1},
    {"oracle db2", "TIMESTAMP", 14, 1},
    {"oracle db2", "TIMESTAMP WITH TIME ZONE", 15, 1},
};

// Bytes of types whose size depends on their length, and of all others of a dialect (the row without a type).
// A dialect without rows has no limit.
struct TypeSize {
  std::string_view dialect;
  std::string_view type;
  std::size_t perUnit;       // of its length
  std::size_t fixed;         // beside them
  std::string_view shorter;  // what holds the same values in fewer bytes of a row
};
constexpr TypeSize kTypeSizes[] = {
    // utf8mb4, and utf8mb3 for national texts.
    {"mysql", "CHAR", 4, 0, "VARCHAR"},
    {"mysql", "VARCHAR", 4, 2, "TEXT"},
    {"mysql", "NCHAR", 3, 0, "TEXT"},
    {"mysql", "NVARCHAR", 3, 2, "TEXT"},
    {"mysql", "BINARY", 1, 0, ""},
    {"mysql", "VARBINARY", 1, 2, "BLOB"},
    {"mysql", "TEXT", 0, 12, ""},
    {"mysql", "BLOB", 0, 12, ""},
    {"mysql", "LONGTEXT", 0, 12, ""},
    {"mysql", "LONGBLOB", 0, 12, ""},
    {"mysql", "JSON", 0, 12, ""},
    {"mysql", "DECIMAL", 0, 32, ""},
    {"mysql", "NUMERIC", 0, 32, ""},
    {"mysql", "", 0, 8, ""},
    // What can be longer than a page only stops a row that is.
    {"sqlserver", "CHAR", 1, 0, "VARCHAR"},
    {"sqlserver", "NCHAR", 2, 0, "NVARCHAR"},
    {"sqlserver", "BINARY", 1, 0, "VARBINARY"},
    {"sqlserver", "VARCHAR", 0, 2, ""},
    {"sqlserver", "NVARCHAR", 0, 2, ""},
    {"sqlserver", "VARBINARY", 0, 2, ""},
    {"sqlserver", "BIT", 0, 1, ""},
    {"sqlserver", "TINYINT", 0, 1, ""},
    {"sqlserver", "SMALLINT", 0, 2, ""},
    {"sqlserver", "INT", 0, 4, ""},
    {"sqlserver", "BIGINT", 0, 8, ""},
    {"sqlserver", "REAL", 0, 4, ""},
    {"sqlserver", "FLOAT", 0, 8, ""},
    {"sqlserver", "DATE", 0, 3, ""},
    {"sqlserver", "TIME", 0, 5, ""},
    {"sqlserver", "SMALLDATETIME", 0, 4, ""},
    {"sqlserver", "DATETIME", 0, 8, ""},
    {"sqlserver", "DATETIME2", 0, 8, ""},
    {"sqlserver", "", 0, 17, ""},
    {"oracle", "CHAR", 1, 1, ""},
    {"oracle", "VARCHAR2", 1, 1, ""},
    {"oracle", "NCHAR", 2, 1, ""},
    {"oracle", "NVARCHAR2", 2, 1, ""},
    {"oracle", "RAW", 1, 1, ""},
    {"oracle", "", 0, 23, ""},
    {"db2", "CHAR", 1, 1, ""},
    {"db2", "VARCHAR", 1, 3, ""},
    {"db2", "NCHAR", 4, 1, ""},
    {"db2", "NVARCHAR", 4, 3, ""},
    {"db2", "GRAPHIC", 2, 1, ""},
    {"db2", "VARGRAPHIC", 2, 3, ""},
    {"db2", "BINARY", 1, 1, ""},
    {"db2", "VARBINARY", 1, 3, ""},
    {"db2", "", 0, 17, ""},
};

// Whether the blank-separated list has the word.
bool includes(std::string_view list, std::string_view word) {
  for (std::size_t place = list.find(word); place != std::string_view::npos;
       place = list.find(word, place + 1)) {
    const std::size_t end = place + word.size();
    if ((place == 0 || list[place - 1] == ' ') && (end == list.size() || list[end] == ' ')) {
      return true;
    }
  }
  return false;
}

// "TIMESTAMP WITH TIME ZONE" for "TIMESTAMP(3) WITH TIME ZONE": without what makes a column number itself.
std::string getBase(std::string_view type) {
  type = type.substr(0, std::min(type.find(" GENERATED"), type.find(" AUTO_INCREMENT")));
  type = type.substr(0, type.find(" IDENTITY"));
  std::string base(type.substr(0, type.find('(')));
  if (const std::size_t end = type.find(')'); end != std::string_view::npos) {
    base += type.substr(end + 1);
  }
  return base;
}

std::string_view withoutIdentity(std::string_view type) {
  type = type.substr(0, std::min(type.find(" GENERATED"), type.find(" AUTO_INCREMENT")));
  return type.substr(0, type.find(" IDENTITY"));
}

const TypeFamily* findFamily(const std::string& base, const SqlDialect& dialect) {
  const auto* const found = std::ranges::find_if(kTypeFamilies, [&](const TypeFamily& row) {
    return row.type == base && includes(row.dialects, dialect.name);
  });
  return found == std::end(kTypeFamilies) ? nullptr : found;
}

const TypeSize* findSize(std::string_view type, const SqlDialect& dialect) {
  const std::string base = getBase(type);
  const auto* const found = std::ranges::find_if(kTypeSizes, [&](const TypeSize& row) {
    return row.dialect == dialect.name && (row.type == base || row.type.empty());
  });
  return found == std::end(kTypeSizes) ? nullptr : found;
}

std::size_t getLength(std::string_view type) {
  std::size_t length = 1;
  if (const std::size_t place = type.find('('); place != std::string_view::npos) {
    std::from_chars(type.data() + place + 1, type.data() + type.size(), length);
  }
  return length;
}

}  // namespace

bool isComparable(std::string_view type, const SqlDialect& dialect) {
  std::string_view list = dialect.notIndexed;
  while (list.size() > 1) {
    list.remove_prefix(1);
    const std::string_view listed = list.substr(0, list.find('|'));
    if (type.starts_with(listed)) {
      return false;
    }
    list.remove_prefix(listed.size());
  }
  return true;
}

bool canReferTo(std::string_view own, std::string_view referenced, const SqlDialect& dialect) {
  if (dialect.id == DialectId::sqlite || withoutIdentity(own) == withoutIdentity(referenced)) {
    return true;
  }
  const TypeFamily* ownFamily = findFamily(getBase(own), dialect);
  const TypeFamily* otherFamily = findFamily(getBase(referenced), dialect);
  return ownFamily != nullptr && otherFamily != nullptr && ownFamily->family == otherFamily->family &&
         ownFamily->rank <= otherFamily->rank;
}

std::size_t getKeyBytes(std::string_view type, const SqlDialect& dialect) {
  const TypeSize* size = findSize(type, dialect);
  if (size == nullptr) {
    return 0;
  }
  return dialect.id == DialectId::mysql && size->perUnit > 0 ? size->perUnit * getLength(type)
                                                             : size->perUnit * getLength(type) + size->fixed;
}

std::size_t getRowBytes(std::string_view type, const SqlDialect& dialect) {
  const TypeSize* size = findSize(type, dialect);
  return size == nullptr ? 0 : size->perUnit * getLength(type) + size->fixed;
}

std::string_view getShorterType(std::string_view type, const SqlDialect& dialect) {
  const TypeSize* size = findSize(type, dialect);
  return size == nullptr ? std::string_view() : size->shorter;
}
