#include "cli/likely_encoding.h"

#include <unicode/ucsdet.h>

#include <algorithm>
#include <memory>

#include "host/base/unicode.h"
#include "host/encoding/encodings.h"

namespace cli {

namespace {

bool isForeign(char byte) {
  return (byte & 0x80) != 0;
}

bool isControl(char byte) {
  return static_cast<unsigned char>(byte) < ' ';
}

// False when the detector has no opinion.
bool askDetector(const std::string& texts, LikelyEncoding& likely) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&error),
                                                                            ucsdet_close);
  ucsdet_setText(detector.get(), texts.data(), static_cast<std::int32_t>(texts.size()), &error);
  std::int32_t count = 0;
  const UCharsetMatch** const matches = ucsdet_detectAll(detector.get(), &count, &error);
  if (U_FAILURE(error) != 0) {
    return false;
  }
  // A text that has been cut at single bytes is in none of the wide forms.
  const auto* const match = std::find_if(matches, matches + count, [&](const UCharsetMatch* candidate) {
    const std::string_view name = ucsdet_getName(candidate, &error);
    return !name.starts_with("UTF-16") && !name.starts_with("UTF-32");
  });
  if (match == matches + count) {
    return false;
  }
  const char* name = ucsdet_getName(*match, &error);
  likely.confidence = ucsdet_getConfidence(*match, &error);
  const VornEncoding* choice = findEncoding(name);
  likely.isChoice = choice != nullptr;
  likely.name = choice == nullptr ? name : std::string(choice->name);
  return true;
}

}  // namespace

void EncodingEvidence::look(std::string_view bytes) {
  tally_.look(bytes);
  collectTexts(bytes);
}

// No more of them than the detector looks at.
void EncodingEvidence::collectTexts(std::string_view bytes) {
  constexpr std::size_t kEnough = 8000;
  while (texts_.size() < kEnough) {
    const std::size_t place = findNonAscii(bytes);
    if (place == bytes.size()) {
      return;
    }
    const auto* const found = bytes.begin() + static_cast<std::ptrdiff_t>(place);
    const auto* const start = std::find_if(std::make_reverse_iterator(found), bytes.rend(), isControl).base();
    const auto* const end = std::find_if(found, bytes.end(), isControl);
    texts_.append(start, std::min(end, start + kEnough)).append("\n");
    bytes.remove_prefix(static_cast<std::size_t>(end - bytes.begin()));
  }
}

LikelyEncoding EncodingEvidence::judge() {
  constexpr std::size_t kFewCharacters = 3;
  constexpr std::size_t kFewBytes = 10;
  tally_.finish();
  LikelyEncoding likely;
  if (tally_.getInvalid() == 0 && tally_.getValid() > 0) {
    likely = {EncodingGround::validUtf8, std::string(findEncoding("UTF-8")->name), true, 100,
              tally_.getValid()};
    likely.ground = tally_.getValid() < kFewCharacters ? EncodingGround::tooFew : likely.ground;
    return likely;
  }
  likely.letters = static_cast<std::size_t>(std::ranges::count_if(texts_, isForeign));
  likely.ground = likely.letters == 0          ? EncodingGround::asciiOnly
                  : likely.letters < kFewBytes ? EncodingGround::tooFew
                                               : EncodingGround::detector;
  if (likely.ground == EncodingGround::detector && !askDetector(texts_, likely)) {
    likely.ground = EncodingGround::tooFew;
  }
  return likely;
}

}  // namespace cli
