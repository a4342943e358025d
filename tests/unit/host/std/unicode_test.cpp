#include "host/std/unicode.h"

#include "../../support.h"

namespace {

using namespace std::string_view_literals;

TEST(Unicode, TellsUtf8AndMakesAnyBytesPrintable) {
  const std::tuple<std::string_view, bool, std::string_view> cases[] = {
      {"plain", true, "plain"},
      {"a\tb\r\nc\x7F\0d"sv, true, "a b  c  d"},
      {"\u00E9\u20AC\U0001F600", true, "\u00E9\u20AC\U0001F600"},
      {"\u0080|\u009F|\u00A0", true, " | |\u00A0"},
      {"caf\xE9", false, "caf\u00E9"},
      {"\x80|\x9F", false, " | "},
      {"\xC0\xAF", false, "\u00C0\u00AF"},                 // overlong
      {"\xE0\x9F\xBF", false, "\u00E0 \u00BF"},            // overlong
      {"\xED\xA0\xBF", false, "\u00ED\u00A0\u00BF"},       // a surrogate
      {"\xF4\x90\xA1\xA1", false, "\u00F4 \u00A1\u00A1"},  // beyond U+10FFFF
      {"\xE2\x82", false, "\u00E2 "},                      // cut off
      {"\xE2\xA2"
       "A\xC3\xA9",
       false, "\u00E2\u00A2A\u00E9"},
      {"\xFE\xFF", false, "\u00FE\u00FF"}};
  for (const auto& [text, wellFormed, line] : cases) {
    SCOPED_TRACE(testing::PrintToString(text));
    EXPECT_EQ(isUtf8(text), wellFormed);
    EXPECT_EQ(toPrintableLine(text), line);
  }
}

TEST(Unicode, ReadsEveryByteAsLatin1) {
  EXPECT_EQ(latin1ToUtf8("A\x7F\x80\xBF\xC0\xFF\0"sv), "A\x7F\xC2\x80\xC2\xBF\xC3\x80\xC3\xBF\0"sv);
}

}  // namespace
