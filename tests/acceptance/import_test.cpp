// What takes more than one import, or a whole model, to see.
#include <gtest/gtest.h>
#include <unicode/unistr.h>

#include <array>
#include <iterator>
#include <regex>
#include <sstream>

#include "host/encoding/encodings.h"
#include "import_runner.h"
#include "saved_model.h"
#include "tests/support.h"

namespace {

std::string readExample(const std::string& name) {
  return readFile(VORN_EXAMPLES "/" + name);
}

TEST(ImportTest, GivesOfEachExampleWhatItsDescriptionSays) {
  const std::array kinds = {"class",       "view",           "attribute", "schema",
                            "association", "generalization", "key",       "index"};
  const std::pair<const char*, std::array<std::ptrdiff_t, kinds.size()>> examples[] = {
      {"bookshop.txt", {11, 1, 59, 1, 10, 1, 27, 27}},
      {"harbour.txt", {80, 6, 398, 8, 110, 6, 213, 213}},
      {"museum-keys.txt", {15, 0, 65, 2, 18, 0, 36, 36}}};
  for (const auto& [file, counts] : examples) {
    SCOPED_TRACE(file);
    const ImportResult result = runImport(readExample(file), {}, VornSeverity::debug);
    EXPECT_EQ(result.problems, std::vector<std::string>());
    for (const Message& message : result.messages) {
      EXPECT_EQ(message.code.find("STATUS"), 0U) << message.toLine();
    }
    ASSERT_TRUE(result.saved);
    EXPECT_EQ(SavedModel(*result.saved).getProblems(), std::vector<std::string>());
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      const std::regex id("\"id\": \"" + std::string(kinds[i]) + ':');
      EXPECT_EQ(std::distance(std::sregex_iterator(result.saved->begin(), result.saved->end(), id), {}),
                counts[i])
          << kinds[i];
    }
  }
}

TEST(ImportTest, FailsWhereASectionIsMissingOrAModelGoesOn) {
  const auto ends = [](std::size_t count) { return std::string(count, '\x1C'); };
  // Sections that are read may be missing up to the next one that is passed over.
  const std::pair<std::string, int> cut[] = {{"", 1},
                                             {"This is no export.", 2},
                                             {ends(3), 5},
                                             {ends(64), 66},
                                             {ends(65), 66},
                                             {ends(66), 67},
                                             {ends(50) + "\t\tShop\r" + ends(18), 51},
                                             {ends(50) + "\r\t\tShop" + ends(18), 51}};
  for (const auto& [bytes, section] : cut) {
    const ImportResult result = runImport(bytes);
    ASSERT_TRUE(result.failure);
    EXPECT_EQ(result.failure->toLine(), "FATAL KVB_SRRDM_F0003 Invalid input file format");
    EXPECT_NE(result.context.find("section " + std::to_string(section) + " of 68"), std::string::npos);
  }
  for (const std::string& behind :
       {ends(7) + "x", ends(8), ends(8) + "x\ry", ends(9) + "\tV\t\tVoid\x1C\2"}) {
    EXPECT_EQ(runImport(ends(59) + "\t1" + behind), runImport(ends(59) + "\t1" + ends(9)));
  }
}

TEST(ImportTest, IsTheSameForEveryVersion) {
  const std::string bytes = readExample("harbour.txt");
  const ImportResult usual = runImport(bytes);
  for (const char* version : {"2.8.4/2.8.5", "2.7.2", "2.6.2", "2.4.4", "", "no version"}) {
    EXPECT_EQ(runImport(bytes, {{"Version", version}}), usual) << version;
  }
}

// An export of records of section 60, and, behind five sections, one of section 65.
std::string exportOfViews(const std::string& entities, const std::string& owner) {
  return std::string(59, '\x1C') + entities + std::string(5, '\x1C') + owner + std::string(4, '\x1C');
}

// Section by section: for some encodings ICU exchanges the separator with other control characters.
std::string encode(const std::string& utf8, const char* converter) {
  std::string bytes;
  std::istringstream sections(utf8);
  for (std::string section; std::getline(sections, section, '\x1C');) {
    const auto text = icu::UnicodeString::fromUTF8(section);
    std::string encoded(section.size() * 4, '\0');
    const auto length =
        text.extract(0, text.length(), encoded.data(), static_cast<std::uint32_t>(encoded.size()), converter);
    bytes.append(encoded, 0, static_cast<std::size_t>(length)) += '\x1C';
  }
  return bytes;
}

// In some of the encodings the second bytes of these letters are brackets and quotes, or all of their bytes
// look like ASCII.
TEST(ImportTest, GivesOneModelOfTwinsInDifferentEncodings) {
  const std::string tabs(46, '\t');
  const auto entity = [&](const char* identifier, const char* owner, const char* name) {
    return std::string("\t") + identifier + '\t' + owner + '\t' + name + std::string(11, '\t') + name;
  };
  const auto view = [&](const char* identifier, const char* owner, const char* statement) {
    return entity(identifier, owner, "V") + tabs + "AS " + statement + "\t\t\t\tY";
  };
  struct Twins {
    const char* first;
    const char* second;
    const char* owner;
    std::vector<const char*> encodings;  // after the first, all must give what that gives
  };
  const Twins all[] = {{"ゼロチ",
                        "ボ表ゾ",
                        "能",
                        {"Unicode (UTF-8)", "Japanese (EUC-JP)", "Japanese (Shift_JIS)",
                         "Japanese (ISO-2022-JP)", "Chinese Simplified (GB18030)"}},
                       {"倕塢亡",
                        "偟嘯",
                        "功",
                        {"Unicode (UTF-8)", "Chinese Traditional (Big5)", "Chinese Simplified (GBK)",
                         "Chinese Simplified (GB18030)"}}};
  for (const auto& [first, second, owner, encodings] : all) {
    const std::string statement = std::string("SELECT '") + second + "' FROM " + first + " " + second + ", " +
                                  owner + "." + second + " JOIN nowhere" + second + " ON 1 = 1";
    const std::string utf8 = exportOfViews(
        entity("1", "", first) + '\r' + entity("2", "", second) + '\r' + entity("3", "U", second) + '\r' +
            view("4", "", statement.c_str()) + '\r' + view("5", "", "SELECT 1 FROM nowhere"),
        std::string("\tU\t") + owner + std::string(3, '\t'));
    std::optional<ImportResult> expected;
    for (const char* encoding : encodings) {
      SCOPED_TRACE(encoding);
      const std::string converter(getEncodingOfChoice(encoding).converter);
      const ImportResult result = runImport(encode(utf8, converter.c_str()), {{"Encoding", encoding}});
      EXPECT_EQ(result.saved, expected.value_or(result).saved);
      EXPECT_EQ(result.messages, expected.value_or(result).messages);
      ASSERT_TRUE(result.saved);
      const std::string wanted = std::string(R"({"sourceElements": [{"name": ")") + first +
                                 R"("}, {"name": ")" + second + R"(/2"}]})";
      EXPECT_EQ(SavedModel(*result.saved)
                    .findMismatches("[{}, {}, {}, " + wanted + R"(, {"sourceElements": []}])",
                                    "/designPackages/0/elements"),
                std::vector<std::string>());
      expected = expected.value_or(result);
    }
  }
}

// The host's converters are kept from one import to the next.
TEST(ImportTest, KnowsTheTypesOfTheVersionAtHand) {
  const auto model = [](const char* version) {
    return std::string(23, '\x1C') + "\tT\t\tBLOB" + std::string(5, '\x1C') + "\tD\tX\tDomain\t\tT" +
           std::string(24, '\x1C') + "\tS\t\t\tX" + std::string(11, '\x1C') + "\tX\tOracle\t" + version +
           std::string(5, '\x1C');
  };
  for (const char* version : {"8.0", "7.0", "8.0"}) {
    const ImportResult result = runImport(model(version));
    ASSERT_TRUE(result.saved) << result.failure->toLine() << result.context;
    EXPECT_EQ(result.saved->find("\"undefined\"") == std::string::npos, std::string(version) == "8.0")
        << version;
  }
}

}  // namespace
