#include "cli/likely_encoding.h"

#include <unicode/ucsdet.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "host/std/encodings.h"
#include "host/std/file.h"

namespace cli {

namespace {

bool isForeign(char byte) {
  return (byte & 0x80) != 0;
}

// The texts between control bytes that have bytes above 127, a line each; no more of them than the detector
// looks at.
std::string collectTexts(const std::string& path) {
  constexpr std::size_t kEnough = 8000;
  std::string texts;
  std::string text;
  const auto finish = [&] {
    if (std::any_of(text.begin(), text.end(), isForeign)) {
      texts += text + '\n';
    }
    text.clear();
  };
  VornFile file{VornString(path)};
  file.open(VornFile::kRead | VornFile::kBinary);
  for (std::string_view ahead = file.peek(); !ahead.empty() && texts.size() < kEnough; ahead = file.peek()) {
    for (const char byte : ahead) {
      const bool isControl = static_cast<unsigned char>(byte) < ' ';
      if (isControl || text.size() == kEnough) {
        finish();
      }
      if (!isControl) {
        text += byte;
      }
    }
    file.skip(ahead.size());
  }
  finish();
  return texts;
}

}  // namespace

std::optional<LikelyEncoding> detectEncoding(const std::string& path) {
  const std::string texts = collectTexts(path);
  if (texts.empty()) {
    return std::nullopt;
  }
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&error),
                                                                            ucsdet_close);
  ucsdet_setText(detector.get(), texts.data(), static_cast<std::int32_t>(texts.size()), &error);
  const UCharsetMatch* match = ucsdet_detect(detector.get(), &error);
  if (match == nullptr) {
    return std::nullopt;
  }
  const char* name = ucsdet_getName(match, &error);
  const int confidence = ucsdet_getConfidence(match, &error);
  if (U_FAILURE(error) != 0) {
    return std::nullopt;
  }
  const VornEncoding* choice = findEncoding(name);
  return LikelyEncoding{choice == nullptr ? name : std::string(choice->name), choice != nullptr, confidence,
                        static_cast<std::size_t>(std::count_if(texts.begin(), texts.end(), isForeign))};
}

}  // namespace cli
