#include "host/transcoder/transcoder.h"

#include <cctype>

#include "../../support.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"
#include "host/transcoder/encodings.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A text after the model that holds it was transcoded.
std::string transcode(const std::string& bytes, std::string_view encoding, CollectingLog& log) {
  VornStoreModel model;
  model.description = VornString(std::string_view(bytes));
  VornTranscoder::transcodeModel(log, model, VornString(encoding));
  return std::string(model.description.view());
}

TEST(Transcoder, HasAConverterForEveryEncoding) {
  const std::string text = "Customer Order (No 1234567890), ABC...xyz: 'a-b' = c;\n";
  EXPECT_EQ(getEncodings().front().name, "unknown");
  for (const VornEncoding& encoding : getEncodings()) {
    SCOPED_TRACE(encoding.name);
    CollectingLog log;
    EXPECT_EQ(transcode(text, encoding.name, log), text);
    EXPECT_EQ(transcode("", encoding.name, log), "");
    EXPECT_THAT(log.messages, IsEmpty());
  }
}

TEST(Transcoder, ReadsEachEncoding) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"Western European (Windows-1252)", "\x80 caf\xE9 \x9F", "\u20AC caf\u00E9 \u0178"},
      {"Western European (ISO-8859-1)", "\x80 caf\xE9", "\u0080 caf\u00E9"},
      {"Western European (ISO-8859-15)", "\xA4 caf\xE9", "\u20AC caf\u00E9"},
      {"Western European (DOS CP437)", "caf\x82 \xE1", "caf\u00E9 \u00DF"},
      {"Western European (DOS CP850)", "caf\x82 \x9B", "caf\u00E9 \u00F8"},
      {"Western European (Macintosh)", "caf\x8E", "caf\u00E9"},
      {"Central European (Windows-1250)", "\xE8", "\u010D"},
      {"Central European (ISO-8859-2)", "\xB9", "\u0161"},
      {"Central European (DOS CP852)", "\x9F", "\u010D"},
      {"Baltic (Windows-1257)", "\xE8", "\u010D"},
      {"Cyrillic (Windows-1251)", "\xC6", "\u0416"},
      {"Cyrillic (ISO-8859-5)", "\xB6", "\u0416"},
      {"Cyrillic (KOI8-R)", "\xF6", "\u0416"},
      {"Cyrillic (DOS CP866)", "\x86", "\u0416"},
      {"Greek (Windows-1253)", "\xE1", "\u03B1"},
      {"Greek (ISO-8859-7)", "\xE1", "\u03B1"},
      {"Greek (DOS CP737)", "\x98", "\u03B1"},
      {"Turkish (Windows-1254)", "\xFE", "\u015F"},
      {"Turkish (ISO-8859-9)", "\xFE", "\u015F"},
      {"Hebrew (Windows-1255)", "\xE0", "\u05D0"},
      {"Hebrew (DOS CP862)", "\x80", "\u05D0"},
      {"Arabic (Windows-1256)", "\xC7", "\u0627"},
      {"Arabic (ISO-8859-6)", "\xC7", "\u0627"},
      {"Thai (Windows-874)", "\xA1", "\u0E01"},
      {"Vietnamese (Windows-1258)", "\xFE", "\u20AB"},
      {"Chinese Simplified (GBK)", "\xD6\xD0", "\u4E2D"},
      {"Chinese Simplified (GB18030)", "\xD6\xD0", "\u4E2D"},
      {"Chinese Simplified (HZ)", "a~{VP~}b", "a\u4E2Db"},
      {"Chinese Traditional (Big5)", "\xA4\xA4", "\u4E2D"},
      {"Chinese Traditional (Big5-HKSCS)", "\xA4\xA4", "\u4E2D"},
      {"Chinese Traditional (EUC-TW)", "\xC4\xE3", "\u4E2D"},
      {"Japanese (Shift_JIS)", "\x93\xFA", "\u65E5"},
      {"Japanese (EUC-JP)", "\xC6\xFC", "\u65E5"},
      {"Japanese (ISO-2022-JP)", "\x1B$BF|\x1B(B", "\u65E5"},
      {"Korean (EUC-KR)", "\xB0\xA1", "\uAC00"},
      {"Korean (Windows-949)", "\xB0\xA1", "\uAC00"},
      {"Korean (ISO-2022-KR)", "\x1B$)C\x0E\x30\x21\x0F", "\uAC00"},
      {"Unicode (UTF-8)", "\xC3\xA9\xF0\x9F\x98\x80", "\u00E9\U0001F600"},
      {"unknown", "\xC3\xE9", "\xC3\xE9"},
      {"no encoding", "\x80", "\u20AC"}  // means the default
  };
  for (const auto& [encoding, bytes, text] : cases) {
    SCOPED_TRACE(encoding);
    CollectingLog log;
    EXPECT_EQ(transcode(bytes, encoding, log), text);
    EXPECT_THAT(log.messages, IsEmpty());
  }
}

TEST(Transcoder, ReadsTheFiveOpenBytesOfTheDefaultAsControls) {
  CollectingLog log;
  EXPECT_EQ(transcode("\x81\x8D\x8F\x90\x9D", getDefaultEncoding().name, log),
            "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_THAT(log.messages, IsEmpty());
}

TEST(Transcoder, ReplacesWhatIsNotValid) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"Unicode (UTF-8)",
       "a\xFF"
       "b",
       "a\uFFFDb"},
      {"Unicode (UTF-8)", "a\xC3", "a\uFFFD"},
      {"Unicode (UTF-8)", "\xE9t\xE9", "\uFFFDt\uFFFD"},
      {"Japanese (EUC-JP)", "a\xC6", "a\uFFFD"},
      {"Thai (ISO-8859-11)", "\xDB", "\uFFFD"}};
  for (const auto& [encoding, bytes, text] : cases) {
    SCOPED_TRACE(encoding);
    CollectingLog log;
    EXPECT_EQ(transcode(bytes, encoding, log), text);
    EXPECT_THAT(log.messages, ElementsAre("VORN_W0009 Texts with bytes that are not valid in the encoding '" +
                                          std::string(encoding) + "', replaced: 1"));
  }
}

TEST(Transcoder, GoesThroughAllTextsOfAModelAndWarnsOnce) {
  VornStoreModel model;
  auto* package = new VornDesignPackage();
  auto* view = new VornSQLViewEntity();
  auto* column = new VornSQLViewAttribute();
  auto* origin = new VornMetadataOrigin();
  model.addDesignPackage(package);
  model.addMetadataOrigin(origin);
  package->addNamespaceElementUniqueName(view, '/');
  view->addFeatureUniqueName(column, '/');
  view->addNote(new VornNote());
  view->addSynonym(new VornSynonym());
  const std::vector<VornString*> texts = {
      &model.dataStoreVersionName,        &package->physicalName, &view->description, &view->viewStatement,
      &view->noteCollection[0]->noteText, &column->attributeText};
  for (VornString* text : texts) {
    *text = "\xC3\xA9\xFF";
  }
  view->setName("\xFF");
  view->synonymCollection[0]->setName("\xFE");
  origin->sourcePath = "\xFF";
  CollectingLog log;
  VornTranscoder::transcodeModel(log, model, "Unicode (UTF-8)");
  for (const VornString* text : texts) {
    EXPECT_EQ(*text, "\u00E9\uFFFD");
  }
  EXPECT_EQ(package->elementCollection.get("\uFFFD"), view) << "the new name is not known to its package";
  EXPECT_EQ(view->synonymCollection[0]->getName(), "\uFFFD");
  EXPECT_EQ(origin->sourcePath, "\xFF") << "a path is no text of the model";
  EXPECT_THAT(log.messages,
              ElementsAre("VORN_W0009 Texts with bytes that are not valid in the encoding 'Unicode (UTF-8)', "
                          "replaced: 8"));
}

TEST(Transcoder, KeepsNamesApart) {
  VornStoreModel model;
  auto* package = new VornDesignPackage();
  model.addDesignPackage(package);
  for (const char* name : {"caf\xE9", "caf\xE8"}) {
    auto* table = new VornClass();
    table->setName(name);
    package->addNamespaceElementUniqueName(table, '/');
  }
  CollectingLog log;
  VornTranscoder::transcodeModel(log, model, "Unicode (UTF-8)");
  EXPECT_THAT(verifyModel(model), IsEmpty());
}

TEST(Encodings, AreFoundByTheirUsualNames) {
  const std::pair<const char*, const char*> cases[] = {{"windows-1252", "Western European (Windows-1252)"},
                                                       {"cp1252", "Western European (Windows-1252)"},
                                                       {"cp850", "Western European (DOS CP850)"},
                                                       {"ibm850", "Western European (DOS CP850)"},
                                                       {"cp437", "Western European (DOS CP437)"},
                                                       {"latin1", "Western European (ISO-8859-1)"},
                                                       {"iso-8859-1", "Western European (ISO-8859-1)"},
                                                       {"ISO_8859-15", "Western European (ISO-8859-15)"},
                                                       {"UTF8", "Unicode (UTF-8)"},
                                                       {"utf-8", "Unicode (UTF-8)"},
                                                       {"macintosh", "Western European (Macintosh)"},
                                                       {"latin2", "Central European (ISO-8859-2)"},
                                                       {"sjis", "Japanese (Shift_JIS)"},
                                                       {"big5", "Chinese Traditional (Big5)"},
                                                       {"gbk", "Chinese Simplified (GBK)"},
                                                       {"euc-kr", "Korean (EUC-KR)"},
                                                       {"unknown", "unknown"}};
  for (const auto& [name, expected] : cases) {
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return static_cast<char>(std::toupper(c)); });
    for (const std::string& spelling : {std::string(name), upper, std::string(expected)}) {
      const VornEncoding* found = findEncoding(spelling);
      ASSERT_NE(found, nullptr) << spelling;
      EXPECT_EQ(found->name, expected) << spelling;
    }
  }
  for (const char* nonsense : {"", "nonsense", "cp", "8859", "utf-9", "windows-125", "Windows-1252)x", "-"}) {
    EXPECT_EQ(findEncoding(nonsense), nullptr) << nonsense;
  }
  for (const VornEncoding& encoding : getEncodings()) {
    EXPECT_EQ(findEncoding(encoding.name), &encoding);
    EXPECT_EQ(findEncoding(encoding.converter), encoding.converter.empty() ? nullptr : &encoding);
  }
}

}  // namespace
