#include "host/std/literals.h"

#include <sstream>

#include "../../support.h"
#include "host/std/options.h"

namespace {

TEST(Messages, PutTheirArgumentsInPlace) {
  VornMessageArguments arguments{"zero", "{0}"};
  arguments[19] = "last";
  const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                       {"{0} and {0}", "zero and zero"},
                                                       {"{1}{0}", "{0}zero"},
                                                       {"[{2}]", "[]"},
                                                       {"{19}", "last"},
                                                       {"{20}", "{20}"},
                                                       {"{0", "{0"},
                                                       {"{", "{"},
                                                       {"0} {}", "0} {}"},
                                                       {"{{0}}", "{zero}"},
                                                       {"{x} {0x}", "{x} {0x}"},
                                                       {"{-1} { 0}", "{-1} { 0}"},
                                                       {"{18446744073709551616}", "{18446744073709551616}"}};
  for (const auto& [text, expected] : cases) {
    SCOPED_TRACE(text);
    const VornTextLiteral literal("name", text);
    const VornMessageLiteral message("CODE", literal, VornSeverity::warning);
    CollectingLog log;
    message.log(log, arguments);
    EXPECT_THAT(log.messages, testing::ElementsAre(std::string("CODE ") + expected));
    EXPECT_EQ(thrownBy([&] { message.throwException(arguments); }), std::string("CODE ") + expected);
  }
}

TEST(TextLiterals, KeepTheFirstTextOfAName) {
  VornTextLiteralCollection literals("literals");
  const VornTextLiteral& first = literals.newLiteral("name", "first");
  EXPECT_EQ(&literals.newLiteral("name", "second"), &first);
  EXPECT_EQ(literals.getLiteral("name")->getText(), "first");
  EXPECT_EQ(literals.getLiteral("Name"), nullptr);
}

TEST(VornLog, WritesWhatItsLevelLetsThroughAndCountsAll) {
  const std::string lines[] = {"FATAL C text\n", "ERROR C text\n", "WARNING C text\n", "STATUS C text\n",
                               "DEBUG C text\n"};
  const auto writeAll = [](VornLog& log) {
    for (int severity = 1; severity <= 5; ++severity) {
      log.write(static_cast<VornSeverity>(severity), "C", "text");
    }
  };
  std::string expected;
  for (int level = 1; level <= 5; ++level) {
    SCOPED_TRACE(level);
    expected += lines[level - 1];
    std::ostringstream stream;
    VornStreamLog log(stream);
    log.setLevel(static_cast<VornSeverity>(level));
    writeAll(log);
    EXPECT_EQ(stream.str(), expected);
    EXPECT_EQ(log.getCount(VornSeverity::debug), 1U);
  }
  std::ostringstream unset;
  VornStreamLog log(unset);
  writeAll(log);
  EXPECT_EQ(unset.str(), lines[0] + lines[1] + lines[2] + lines[3]);
}

TEST(VornLog, WritesALineAMessageWhateverItsText) {
  std::ostringstream stream;
  VornStreamLog(stream).write(VornSeverity::warning, "C", "a\r\nb\x1B[1m caf\xE9");
  EXPECT_EQ(stream.str(), "WARNING C a  b [1m caf\u00E9\n");
}

TEST(VornOptionList, FindsOptionsByNameAndKeepsTheirOrder) {
  VornOptionList options;
  const auto add = [&](const char* name, const char* value) {
    return options.add(std::make_unique<VornOption>(name, VornOption::Kind::text, "", "", value));
  };
  EXPECT_TRUE(add("b", "1"));
  EXPECT_TRUE(add("a", "2"));
  EXPECT_FALSE(add("b", "3"));
  options.get("a")->setValue("4");
  std::vector<std::string> all;
  for (const auto& option : options) {
    all.push_back(std::string(option->getName().view()) + std::string(option->getValue().view()));
  }
  EXPECT_THAT(all, testing::ElementsAre("b1", "a4"));
  EXPECT_EQ(options.getValue("a"), "4");
  EXPECT_EQ(options.getValue("A"), "");
  EXPECT_EQ(options.get("c"), nullptr);
  options.removeAll();
  EXPECT_TRUE(add("b", "5"));
}

}  // namespace
