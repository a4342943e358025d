// Texts and what is written with them: numbers, UTF-8, time stamps, messages.
#include <vector>

#include "host/base/date.h"
#include "host/base/literals.h"
#include "host/base/unicode.h"
#include "tests/support.h"

namespace {

using namespace std::string_view_literals;

// Texts of up to 15 bytes are kept in another way than longer ones.
TEST(VornString, IsTheSameTextWhateverItsLength) {
  std::vector<std::string> texts;
  for (const std::size_t length : {0U, 1U, 14U, 15U, 16U, 17U, 100U}) {
    texts.push_back(std::string(length, 'a'));
    texts.push_back(std::string(length, 'a') + "\xFF");
  }
  for (const std::string& first : texts) {
    for (const std::string& second : texts) {
      const VornString a(first.c_str());
      VornString b = VornString(std::string_view(second));
      EXPECT_EQ(a == b, first == second);
      EXPECT_EQ(a < b, first < second);
      EXPECT_EQ((a + b).c_str(), first + second);
      b += a;
      EXPECT_EQ(b.view(), second + first);
      b = a;
      EXPECT_EQ(std::string(b.c_str()), first);
      EXPECT_EQ(b.length(), first.size());
      EXPECT_EQ(b.empty(), first.empty());
      b += b;
      const VornString moved = std::move(b);
      EXPECT_EQ(moved.view(), first + first);
    }
  }
}

TEST(Unicode, TellsUtf8AndMakesAnyBytesPrintable) {
  EXPECT_TRUE(isUtf8("é€😀\u009F"));
  for (const char* wrong : {"\xE9", "\xC0\xAF", "\xED\xA0\xBF", "\xF4\x90\xA1\xA1", "\xE2\x82"}) {
    EXPECT_FALSE(isUtf8(wrong)) << testing::PrintToString(wrong);
  }
  EXPECT_EQ(toPrintableLine("a\tb\r\nc\x7F\0d\u009F"sv), "a b  c  d ");
  EXPECT_EQ(toPrintableLine("é€😀|\xC0\xAF|\xE2\xA2|\xC3\xA9\xE2"), "é€😀|À¯|â¢|éâ");
  // Format characters: those that turn the direction of writing, blanks without width, tags, a soft hyphen.
  EXPECT_EQ(toPrintableLine("\u202Aa\u202E\u2066b\u2069\u200B\u200F\uFEFF\u00AD\u2028\u2029\U000E0041."),
            " a  b        .");
  EXPECT_EQ(escapeCommands("\n\u202Ea\u2066é\u007F\u009F\U000E0041\xFF"),
            "\n\\u202Ea\\u2066é\\u007F\\u009F\\uDB40\\uDC41\xFF");
  EXPECT_EQ(latin1ToUtf8("A\x7F\x80\xFF\0"sv), "A\x7F\u0080ÿ\0"sv);
}

TEST(VornDate, StandsEightHoursBehindUtcAllTheYear) {
  EXPECT_EQ(VornDate(1782887400).getPstTimestamp(), "2026-06-30 22:30:00 PST");
  EXPECT_EQ(VornDate(1709193600).getPstTimestamp(), "2024-02-29 00:00:00 PST");
  EXPECT_EQ(VornDate(-1).getPstTimestamp(), "1969-12-31 15:59:59 PST");
}

TEST(Messages, PutTheirArgumentsInPlace) {
  VornMessageArguments arguments{"zero", "{0}"};
  arguments[19] = "last";
  const VornTextLiteral text("{1}{0}[{2}{19}{20}] {{0}} {x} {0x} {-1} { 0} {} {18446744073709551616} {0");
  EXPECT_EQ(
      thrownBy([&] { VornMessageLiteral("CODE", text, VornSeverity::fatal).throwException(arguments); }),
      "CODE {0}zero[last{20}] {zero} {x} {0x} {-1} { 0} {} {18446744073709551616} {0");
}

}  // namespace
