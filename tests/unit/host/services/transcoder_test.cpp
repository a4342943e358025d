#include "host/services/transcoder.h"

#include "host/encoding/encodings.h"
#include "host/metamodel/store_model.h"
#include "tests/support.h"

namespace {

// Transcodes a model that holds the bytes and expects the text, with a warning where some were not valid.
void expectTranscoded(std::string_view encoding, std::string_view bytes, std::string_view text) {
  SCOPED_TRACE(encoding);
  CountingLog log;
  VornStoreModel model;
  model.description = VornString(bytes);
  VornTranscoder::transcodeModel(log, model, VornString(encoding));
  EXPECT_EQ(model.description.view(), text);
  EXPECT_EQ(log.getCount(VornSeverity::warning), text.find("\uFFFD") == std::string_view::npos ? 0U : 1U);
}

TEST(Transcoder, HasAConverterForEveryEncoding) {
  const std::string_view text = "Customer Order (No 1234567890), ABC...xyz: 'a-b' = c;\n";
  for (const VornEncoding& encoding : getEncodings()) {
    expectTranscoded(encoding.name, text, text);
    EXPECT_EQ(findEncoding(encoding.name), &encoding);
  }
}

TEST(Transcoder, ReadsEncodingsAndReplacesWhatIsNotValid) {
  expectTranscoded(getDefaultEncoding().name, "\x80\x81\x8D\x8F\x90\x9D", "€\u0081\u008D\u008F\u0090\u009D");
  expectTranscoded("Western European (ISO-8859-1)", "\x80 \xE9", "\u0080 é");
  expectTranscoded("Chinese Simplified (HZ)", "a~{VP~}b", "a中b");
  expectTranscoded("Japanese (Shift_JIS)", "\x93\xFA", "日");
  expectTranscoded("Unicode (UTF-8)", "\xC3\xA9\xF0\x9F\x98\x80", "é😀");
  expectTranscoded("Unicode (UTF-8)", "\xE9t\xC3", "\uFFFDt\uFFFD");
  expectTranscoded("Thai (ISO-8859-11)", "\xDB", "\uFFFD");
  expectTranscoded("unknown", "\xC3\xE9", "\xC3\xE9");
  for (const char* noChoice : {"", "utf-8", "Unknown"}) {
    expectTranscoded(noChoice, "\xC3\xA9", "Ã©");  // as by default
  }
}

TEST(Encodings, AreFoundByTheirUsualNames) {
  EXPECT_EQ(findEncoding("Cp1252"), &getDefaultEncoding());
  for (const char* name : {"cp850", "IBM850", "latin1", "ISO_8859-15", "UTF8", "macintosh", "sjis", "gbk"}) {
    EXPECT_NE(findEncoding(name), nullptr) << name;
  }
  for (const char* nonsense : {"", "nonsense", "cp", "utf-9", "windows-125", "Windows-1252)x", "-"}) {
    EXPECT_EQ(findEncoding(nonsense), nullptr) << nonsense;
  }
}

}  // namespace
