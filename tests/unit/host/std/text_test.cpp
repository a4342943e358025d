#include "host/std/text.h"

#include <limits>

#include "../../support.h"

namespace {

using namespace std::string_literals;

TEST(VornString, ComparesWithAndWithoutLetterCase) {
  const std::tuple<const char*, const char*, bool, bool> cases[] = {
      {"", "", true, true},
      {"Order", "Order", true, true},
      {"Order", "oRDER", false, true},
      {"Order", "Order ", false, false},
      {"@", "`", false, false},  // the neighbours of the letters
      {"[", "{", false, false},
      {"\xC9", "\xE9", false, false},
      {"ab", "a", false, false}};
  for (const auto& [first, second, same, sameButForCase] : cases) {
    SCOPED_TRACE(std::string(first) + " and " + second);
    EXPECT_EQ(VornString(first).equals(second, true), same);
    EXPECT_EQ(VornString(first).equals(second, false), sameButForCase);
    EXPECT_EQ(VornString(second).equals(first, false), sameButForCase);
  }
}

TEST(VornString, TrimsBlanksAtBothEndsOnly) {
  EXPECT_EQ(VornString(" \t\n\v\f\ra \t b\r\f\v\n\t ").trim(), "a \t b");
  EXPECT_EQ(VornString("\xA0|\x1F").trim(), "\xA0|\x1F");
  EXPECT_EQ(VornString(" \t\n\v\f\r").trim(), "");
  EXPECT_EQ(VornString("").trim(), "");
}

TEST(VornString, ReadsDecimalNumbers) {
  std::vector<std::pair<std::string, std::optional<std::int32_t>>> cases = {{"0", 0},
                                                                            {"-0", 0},
                                                                            {"+7", 7},
                                                                            {" \t\n\v\f\r-7", -7},
                                                                            {"12 34", 12},
                                                                            {"12x", 12},
                                                                            {"1.5", 1},
                                                                            {"0x10", 0},
                                                                            {"2147483646", 2147483646},
                                                                            {"-2147483647", -2147483647},
                                                                            {std::string(500, '0') + "5", 5}};
  for (const char* none : {"", " \t", "-", "+", "+-1", "- 1", "x1", "\xB2"}) {
    cases.emplace_back(none, std::nullopt);
  }
  for (const std::string& beyond : {"2147483647"s, "2147483648"s, "4294967297"s, "9223372036854775808"s,
                                    "18446744073709551617"s, std::string(500, '1')}) {
    cases.emplace_back(beyond, std::numeric_limits<std::int32_t>::max());
    cases.emplace_back("-" + beyond + "x",
                       beyond == "2147483647" ? -2147483647 : std::numeric_limits<std::int32_t>::min());
  }
  for (const auto& [text, number] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseInteger(text), number);
    std::int32_t place = 4711;
    EXPECT_EQ(VornString(std::string_view(text)).scanf("%d", &place), number ? 1 : 0);
    EXPECT_EQ(place, number.value_or(4711));
    EXPECT_EQ(VornString(std::string_view(text)).scanf("%x", &place), 0);
  }
}

}  // namespace
