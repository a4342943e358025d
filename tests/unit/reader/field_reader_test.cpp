#include "reader/field_reader.h"

#include <set>

#include "../support.h"
#include "bridge/import_state.h"
#include "reader/section_table.h"

namespace silrdm {
namespace {

using namespace std::string_literals;

// Control bytes stand in the tests as letters would be read: < STX, > ETX, | TAB, ; CR, # FS.
std::string spell(std::string text) {
  for (char& byte : text) {
    const std::size_t place = "<>|;#"s.find(byte);
    if (place != std::string::npos) {
      byte = "\2\3\t\r\x1C"[place];
    }
  }
  return text;
}

class Reader : public testing::Test {
 protected:
  Reader() { importLog = &log_; }
  ~Reader() override {
    inputFile.close();
    importLog = nullptr;
    readingPlace = {};
  }

  void open(const std::string& bytes) {
    inputFile = VornString(folder_.write("export.txt", bytes));
    ASSERT_TRUE(inputFile.open(VornFile::kRead | VornFile::kBinary));
  }

  // The records of the next section, each with what readRecord returned.
  using Records = std::vector<std::pair<std::string, bool>>;
  Records readSection(std::size_t capacity = kRecordCapacity) {
    Records records;
    std::vector<char> buffer(capacity + 1, '?');
    do {
      const bool more = readRecord(buffer.data(), capacity);
      records.emplace_back(buffer.data(), more);
      EXPECT_EQ(buffer.back(), '?') << "written behind the buffer";
    } while (records.back().second && records.size() < 100);
    return records;
  }

  TempFolder folder_;
  CollectingLog log_;
};

TEST_F(Reader, ReadsRecordsUpToTheEndOfTheirSection) {
  const std::tuple<const char*, Records, std::size_t> cases[] = {
      {"a|b;c#d#", {{"a|b", true}, {"c", false}}, 6},
      {"#a", {{"", false}}, 1},
      {";;a;#", {{"", true}, {"", true}, {"a", true}, {"", false}}, 5},
      {"", {{"", false}}, 0},
      {"a;last", {{"a", true}, {"last", false}}, 6},
      {"<a;b#c>|d;e#", {{"<a;b#c>|d", true}, {"e", false}}, 12},
      {"<a<b>;c>#", {{"<a<b>", true}, {"c>", false}}, 9},  // the first ETX ends a text
      {"><;>;#", {{"><;>", true}, {"", false}}, 6},
      {"a;<b;c#d", {{"a", true}, {"<b;c#d", false}}, 8},  // a text that never ends
      {"a;\nb;\n#", {{"a", true}, {"\nb", true}, {"\n", false}}, 7}};
  for (const auto& [bytes, records, position] : cases) {
    SCOPED_TRACE(bytes);
    open(spell(bytes));
    Records expected = records;
    for (auto& [record, more] : expected) {
      record = spell(record);
    }
    EXPECT_EQ(readSection(), expected);
    EXPECT_EQ(inputFile.getPosition(), position);
  }
  EXPECT_THAT(log_.messages, testing::IsEmpty());
}

TEST_F(Reader, CutsRecordsThatAreTooLongAndSaysSoOnceForEach) {
  const std::tuple<std::size_t, std::vector<std::size_t>, std::size_t> cases[] = {
      {16384, {16382, 16383}, 0},
      {16384, {16384}, 1},
      {16384, {40000, 16383, 70000}, 2},
      {1, {0, 0}, 0},
      {1, {1, 5}, 2},
      {2, {0, 1, 2, 3}, 2}};
  for (const auto& [capacity, lengths, warnings] : cases) {
    SCOPED_TRACE(testing::Message() << capacity << " for " << lengths.back());
    log_.messages.clear();
    std::string bytes;
    Records expected;
    for (const std::size_t length : lengths) {
      const std::string record(length, static_cast<char>('a' + expected.size()));
      expected.emplace_back(record.substr(0, capacity - 1), true);
      bytes += record + "\r";
    }
    expected.back().second = false;
    bytes.back() = control::kFs;
    open(bytes);
    EXPECT_TRUE(readSection(capacity) == expected);
    EXPECT_EQ(log_.messages, std::vector<std::string>(warnings, "KVB_SRRDM_W0004 Line too long"));
  }
}

TEST_F(Reader, KeepsTrackOfTextsInWhatItCutsOff) {
  open(spell("abc<d;e>f;g<h;i#"));
  EXPECT_EQ(readSection(4), (Records{{"abc", true}, {spell("g<h"), false}}));
  EXPECT_EQ(log_.messages.size(), 2U);
}

TEST_F(Reader, ReadsNothingWhereReadingFails) {
  open("a;b");
  inputFile.close();
  EXPECT_EQ(readSection(), (Records{{"", false}}));
}

TEST_F(Reader, SkipsToTheFirstEndOfSection) {
  const std::tuple<std::string, std::size_t> cases[] = {{spell("#a#"), 1},
                                                        {spell("a;b#c"), 4},
                                                        {spell("x<y#z>#"), 4},
                                                        {"abc", 3},
                                                        {std::string(65535, 'a') + spell("#b"), 65536},
                                                        {std::string(65536, 'a') + spell("#b"), 65537}};
  for (const bool allowEndOfFile : {false, true}) {
    for (const auto& [bytes, position] : cases) {
      open(bytes);
      skipSection(allowEndOfFile);
      EXPECT_EQ(inputFile.getPosition(), position);
    }
  }
  open("");
  EXPECT_EQ(thrownBy([] { skipSection(true); }), "");
  EXPECT_EQ(thrownBy([] { skipSection(false); }), "KVB_SRRDM_F0003 Invalid input file format");
}

TEST(NextField, TakesTheFieldsOffARecord) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {{"", {"", ""}},
                                                                    {"a|b", {"a", "b", "", ""}},
                                                                    {"||", {"", "", "", ""}},
                                                                    {" a | b", {" a ", " b"}},
                                                                    {"<abc>|<>|<d", {"abc", "", "d"}},
                                                                    {"x<abc>yz|n", {"abc", "n"}},
                                                                    {"abc>tail|n", {"abc", "n"}},
                                                                    {"<a>x<b>y|n", {"b", "n"}},
                                                                    {"<a<b>|n", {"b", "n"}},
                                                                    {"><a>|n", {"a", "n"}},
                                                                    {">a|n", {"", "n"}},
                                                                    {"<a>b<|n", {"", "n"}},
                                                                    {"<a|b>|c", {"a", "b", "c"}},
                                                                    {"<a;b#c\nd>|n", {"a;b#c\nd", "n"}},
                                                                    {"\na", {"\na", ""}},
                                                                    {"a\0b|c"s, {"a", "", ""}},
                                                                    {"<a\0b>|c"s, {"a", ""}},
                                                                    {"\0a|b"s, {"", ""}}};
  for (const auto& [text, fields] : cases) {
    SCOPED_TRACE(testing::PrintToString(text));
    std::string record = spell(text);
    char* cursor = record.data();
    for (const std::string& field : fields) {
      EXPECT_EQ(nextField(cursor), spell(field));
    }
  }
}

TEST_F(Reader, KnowsSixtyEightSectionsAndWhichOfThemItUses) {
  const std::set<int> used{4, 7, 11, 12, 14, 17, 24, 28, 29, 51, 53, 60, 64, 65};
  int position = 0;
  for (const Section& section : kSections) {
    SCOPED_TRACE(section.position);
    EXPECT_EQ(section.position, ++position);
    EXPECT_EQ(*section.name != '\0', used.contains(position));
    if (!used.contains(position)) {
      open(spell("a#b"));
      section.read();
      EXPECT_EQ(inputFile.getPosition(), 2U);
      open("");
      EXPECT_EQ(thrownBy(section.read).empty(), position == 68) << "only the last section may be missing";
    }
  }
}

}  // namespace
}  // namespace silrdm
