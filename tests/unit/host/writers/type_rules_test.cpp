#include "host/writers/common/type_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "host/writers/common/dialects.h"

namespace {

std::string_view getHostType(const TypeRule& rule) {
  return rule.source.substr(rule.source.find(':') + 1);
}

ColumnType makeType(const TypeRule& rule, int length, int scale) {
  const std::size_t colon = rule.source.find(':');
  return {colon == std::string_view::npos ? std::string_view() : rule.source.substr(0, colon),
          getHostType(rule), length, scale};
}

// The least and the most of "1-40"; an open end is far.
std::vector<int> getEnds(std::string_view bounds) {
  constexpr int kFar = 100'000;
  if (bounds.empty()) {
    return {0, 5};
  }
  const std::string text(bounds);
  const std::size_t dash = text.find('-');
  const int least = std::stoi(text);
  if (dash == std::string::npos) {
    return {least};
  }
  return {least, dash + 1 == text.size() ? std::max(kFar, least + 1) : std::stoi(text.substr(dash + 1))};
}

// The numbers between the type's parentheses.
std::vector<int> getArguments(const std::string& type) {
  std::vector<int> numbers;
  for (std::size_t place = type.find('('); place != std::string::npos; place = type.find(',', place + 1)) {
    if (std::isdigit(static_cast<unsigned char>(type[place + 1])) != 0) {
      numbers.push_back(std::stoi(type.substr(place + 1)));
    }
  }
  return numbers;
}

bool holdsDecimal(const std::string& target, std::string_view dialect, int length, int scale) {
  const std::map<std::string, int> integers = {{"SMALLINT", 4}, {"INTEGER", 9}, {"INT", 9}, {"BIGINT", 18}};
  if (const auto integer = integers.find(target); integer != integers.end()) {
    return scale == 0 && length > 0 && length <= integer->second;
  }
  const std::vector<int> sizes = getArguments(target);
  if (sizes.empty()) {
    return true;
  }
  const int fraction = sizes.size() > 1 ? sizes[1] : 0;
  return length > 0 && sizes[0] - fraction >= length - scale && fraction >= scale &&
         (dialect != "sqlite" || length <= 15);
}

// Whether a target holds texts or bytes, which have `length`; nothing for other types.
std::optional<bool> holdsText(const std::string& target, std::string_view hostType, int length) {
  static const std::set<std::string_view> kTexts = {
      "BINARY", "BIT VARYING", "CHAR", "GRAPHIC", "NCHAR", "NVARCHAR", "VARBINARY", "VARCHAR", "VARGRAPHIC"};
  if (!kTexts.contains(hostType)) {
    return std::nullopt;
  }
  const std::vector<int> sizes = getArguments(target);
  const bool isVarying = hostType.find("VAR") != std::string_view::npos;
  return sizes.empty() || (length > 0 ? sizes[0] >= length : !isVarying);
}

// The same of times, which have fractions of seconds of `length` digits, unless that is another size.
std::optional<bool> holdsTime(const std::string& target, std::string_view hostType, std::string_view dialect,
                              int length) {
  if ((hostType != "DATETIME" && !hostType.starts_with("TIME")) ||
      (dialect == "sqlserver" && target == "DATETIME")) {
    return std::nullopt;
  }
  const bool hasZone = hostType.ends_with("ZONE");
  const bool losesZone = hasZone && (dialect == "mysql" || dialect == "db2");
  const bool hasFractions =
      !getArguments(target).empty() || dialect == "sqlite" || length == 0 || length > 12;
  const bool isShort =
      (dialect == "db2" || dialect == "oracle") && (target == "TIME" || target == "DATE") && length > 0;
  return !losesZone && !isShort && hasFractions &&
         (getArguments(target).empty() || length > 12 || getArguments(target)[0] >= length);
}

TEST(TypeRulesTest, SayOfEachTypeWhetherItHoldsAllValues) {
  for (const TypeRule& rule : getTypeRules()) {
    for (const int length : getEnds(rule.lengths)) {
      for (const int scale : getEnds(rule.scales)) {
        const bool isDecimal = getHostType(rule) == "DECIMAL" || getHostType(rule) == "NUMERIC";
        if (isDecimal && length < scale) {
          continue;
        }
        SCOPED_TRACE(std::string(rule.source) + " " + std::string(rule.dialect) + " " +
                     std::to_string(length) + "," + std::to_string(scale));
        const ColumnType type = makeType(rule, length, scale);
        ASSERT_EQ(findTypeRule(type, rule.dialect, {}, false), &rule);
        const std::string target = makeTarget(rule, type);
        EXPECT_EQ(target.find('{'), std::string::npos) << target;
        const auto text = holdsText(target, getHostType(rule), length);
        const auto time = holdsTime(target, getHostType(rule), rule.dialect, length);
        if (isDecimal) {
          EXPECT_EQ(rule.loses.empty(), holdsDecimal(target, rule.dialect, length, scale)) << target;
        } else if (text || time) {
          EXPECT_EQ(rule.loses.empty(), text.value_or(true) && time.value_or(true)) << target;
        } else {
          // SQL_VARIANT is short, and PostgreSQL ends a text at 1 GB.
          EXPECT_TRUE(rule.loses.empty() || target == "SQL_VARIANT" || rule.lengths == "1073741824-")
              << target;
        }
      }
    }
  }
}

TEST(TypeRulesTest, KnowEveryTypeInEveryDialect) {
  std::set<std::string_view> hostTypes;
  for (const TypeRule& rule : getTypeRules()) {
    hostTypes.insert(getHostType(rule));
  }
  EXPECT_EQ(hostTypes.size(), 43U);
  for (const std::string_view hostType : hostTypes) {
    for (const SqlDialect& dialect : getSqlDialects()) {
      for (const int length : {INT_MIN, -1, 0, 1, 5, 12, 13, 38, 39, 255, 4000, 4001, 65535, INT_MAX}) {
        for (const int scale : {INT_MIN, -1, 0, 1, 31, 66, INT_MAX}) {
          for (const bool keeps : {false, true}) {
            EXPECT_NE(findTypeRule({"ORACLE", hostType, length, scale}, dialect.name, {}, keeps), nullptr)
                << hostType << ' ' << dialect.name << ' ' << length << ' ' << scale;
          }
        }
      }
    }
  }
}

TEST(TypeRulesTest, TakeTheLargestSizeAndNoLarger) {
  const std::tuple<const char*, ColumnType, const char*> cases[] = {
      {"oracle", {"", "VARCHAR", 4000}, "VARCHAR2(4000)"},
      {"oracle", {"", "VARCHAR", 4001}, "CLOB"},
      {"oracle", {"", "CHAR", 2001}, "VARCHAR2(2001)"},
      {"mysql", {"", "VARCHAR", 16383}, "VARCHAR(16383)"},
      {"mysql", {"", "VARCHAR", 16384}, "LONGTEXT"},
      {"mysql", {"", "NUMERIC", 60, 40}, "NUMERIC(60,30)"},
      {"postgresql", {"", "NUMERIC", 2, 9}, "NUMERIC(9,9)"},
      {"postgresql", {"", "NUMERIC", 5, -2}, "NUMERIC(7,0)"},
      {"postgresql", {"ORACLE", "NUMERIC", 4}, "SMALLINT"},
      {"postgresql", {"ORACLE", "NUMERIC", 5}, "INTEGER"},
      {"sqlserver", {"ORACLE", "NUMERIC", 10}, "BIGINT"},
      {"postgresql", {"ORACLE", "NUMERIC", 19}, "NUMERIC(19,0)"},
      {"postgresql", {"ORACLE", "NUMERIC", 9, 2}, "NUMERIC(9,2)"},
      {"oracle", {"ORACLE", "NUMERIC", 4}, "NUMBER(4,0)"},
      {"postgresql", {"ORACLE", "DATE"}, "TIMESTAMP(0)"},
      {"sqlserver", {"ORACLE", "DATE"}, "DATETIME2(0)"},
      {"mysql", {"ORACLE", "DATE"}, "DATETIME"},
      {"oracle", {"ORACLE", "DATE"}, "DATE"},
      {"sqlserver", {"", "TINYINT"}, "SMALLINT"},
      {"sqlserver", {"MICROSOFT_SQL_SERVER", "TINYINT"}, "TINYINT"}};
  for (const auto& [dialect, type, target] : cases) {
    const TypeRule* rule = findTypeRule(type, dialect, {}, false);
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(makeTarget(*rule, type), target) << dialect;
  }
  EXPECT_EQ(findTypeRule({"ORACLE", "NUMERIC", 4}, "postgresql", {}, true)->source, "NUMERIC");
  EXPECT_EQ(makeTarget({"FLOAT", "", "", "", "DECIMAL({precision},{scale})", ""}, {"", "FLOAT", 4, 9}),
            "DECIMAL(4,4)");
}

}  // namespace
