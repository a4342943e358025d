#include "host/encoding/encodings.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

constexpr auto kEncodings = std::to_array<VornEncoding>({
    {"unknown", ""},
    {"Arabic (ISO-8859-6)", "ISO-8859-6"},
    {"Arabic (Windows-1256)", "windows-1256"},
    {"Arabic (DOS CP864)", "IBM864"},
    {"Baltic (ISO-8859-4)", "ISO-8859-4"},
    {"Baltic (ISO-8859-13)", "ISO-8859-13"},
    {"Baltic (Windows-1257)", "windows-1257"},
    {"Baltic (DOS CP775)", "IBM775"},
    {"Celtic (ISO-8859-14)", "ISO-8859-14"},
    {"Central European (ISO-8859-2)", "ISO-8859-2"},
    {"Central European (Windows-1250)", "windows-1250"},
    {"Central European (DOS CP852)", "IBM852"},
    {"Central European (Macintosh)", "x-mac-centraleurroman"},
    {"Chinese Simplified (GBK)", "GBK"},
    {"Chinese Simplified (GB18030)", "GB18030"},
    {"Chinese Simplified (HZ)", "HZ-GB-2312"},
    {"Chinese Traditional (Big5)", "Big5"},
    {"Chinese Traditional (Big5-HKSCS)", "Big5-HKSCS"},
    {"Chinese Traditional (EUC-TW)", "EUC-TW"},
    {"Cyrillic (ISO-8859-5)", "ISO-8859-5"},
    {"Cyrillic (Windows-1251)", "windows-1251"},
    {"Cyrillic (KOI8-R)", "KOI8-R"},
    {"Cyrillic (KOI8-U)", "KOI8-U"},
    {"Cyrillic (DOS CP855)", "IBM855"},
    {"Cyrillic (DOS CP866)", "IBM866"},
    {"Cyrillic (Macintosh)", "x-mac-cyrillic"},
    {"Greek (ISO-8859-7)", "ISO-8859-7"},
    {"Greek (Windows-1253)", "windows-1253"},
    {"Greek (DOS CP737)", "IBM737"},
    {"Greek (Macintosh)", "x-mac-greek"},
    {"Hebrew (ISO-8859-8)", "ISO-8859-8"},
    {"Hebrew (Windows-1255)", "windows-1255"},
    {"Hebrew (DOS CP862)", "IBM862"},
    {"Japanese (Shift_JIS)", "Shift_JIS"},
    {"Japanese (EUC-JP)", "EUC-JP"},
    {"Japanese (ISO-2022-JP)", "ISO-2022-JP"},
    {"Korean (EUC-KR)", "EUC-KR"},
    {"Korean (Windows-949)", "windows-949"},
    {"Korean (ISO-2022-KR)", "ISO-2022-KR"},
    {"Nordic (ISO-8859-10)", "ISO-8859-10"},
    {"Nordic (DOS CP865)", "IBM865"},
    {"South European (ISO-8859-3)", "ISO-8859-3"},
    {"Thai (ISO-8859-11)", "ISO-8859-11"},
    {"Thai (Windows-874)", "windows-874"},
    {"Turkish (ISO-8859-9)", "ISO-8859-9"},
    {"Turkish (Windows-1254)", "windows-1254"},
    {"Turkish (DOS CP857)", "IBM857"},
    {"Unicode (UTF-8)", "UTF-8"},
    {"Vietnamese (Windows-1258)", "windows-1258"},
    {"Western European (ISO-8859-1)", "ISO-8859-1"},
    {"Western European (ISO-8859-15)", "ISO-8859-15"},
    {"Western European (Windows-1252)", "windows-1252"},
    {"Western European (DOS CP437)", "IBM437"},
    {"Western European (DOS CP850)", "IBM850"},
    {"Western European (Macintosh)", "macintosh"},
});

constexpr const VornEncoding* kDefault =
    std::find_if(kEncodings.begin(), kEncodings.end(),
                 [](const VornEncoding& encoding) { return encoding.converter == "windows-1252"; });

// Whether ICU knows `converter` by the name too. Like ICU, letter case and '-' do not count.
bool isAlias(const std::string& converter, const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  const std::uint16_t count = ucnv_countAliases(converter.c_str(), &status);
  for (std::uint16_t number = 0; U_SUCCESS(status) != 0 && number < count; ++number) {
    const char* alias = ucnv_getAlias(converter.c_str(), number, &status);
    if (U_SUCCESS(status) != 0 && ucnv_compareNames(alias, name.c_str()) == 0) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::span<const VornEncoding> getEncodings() {
  return kEncodings;
}

const VornEncoding& getDefaultEncoding() {
  return *kDefault;
}

const VornEncoding& getEncodingOfChoice(std::string_view name) {
  const auto* const found = std::find_if(kEncodings.begin(), kEncodings.end(),
                                         [&](const VornEncoding& encoding) { return encoding.name == name; });
  return found == kEncodings.end() ? getDefaultEncoding() : *found;
}

const VornEncoding* findEncoding(std::string_view name) {
  const std::string wanted(name);
  const auto find = [](const auto& isMeant) {
    const auto* const found = std::find_if(kEncodings.begin(), kEncodings.end(), isMeant);
    return found == kEncodings.end() ? nullptr : found;
  };
  const VornEncoding* byName = find([&](const VornEncoding& encoding) {
    return ucnv_compareNames(std::string(encoding.name).c_str(), wanted.c_str()) == 0;
  });
  return byName != nullptr ? byName : find([&](const VornEncoding& encoding) {
    return !encoding.converter.empty() && isAlias(std::string(encoding.converter), wanted);
  });
}

bool isSingleByte(const VornEncoding& encoding) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(
      encoding.converter.empty() ? nullptr : ucnv_open(std::string(encoding.converter).c_str(), &status),
      ucnv_close);
  return converter != nullptr && ucnv_getMaxCharSize(converter.get()) == 1;
}
