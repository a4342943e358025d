#include "host/base/unicode.h"
#include "host/encoding/encodings.h"
#include "host/metamodel/store_model.h"
#include "host/services/transcoder.h"
#include "support.h"
#include "targets.h"

void fuzzTranscoder(Bytes input) {
  const VornEncoding& encoding = input.choose(getEncodings());
  const std::string_view first = input.takeText();
  const std::string_view second = input.takeText();
  const auto transcode = [&](VornStoreModel& model, std::string_view name, std::string_view description) {
    QuietLog log;
    model.setName(VornString(name));
    model.description = VornString(description);
    VornTranscoder::transcodeModel(log, model, VornString(encoding.name));
    return log.getCount(VornSeverity::warning);
  };
  VornStoreModel model;
  VornStoreModel swapped;
  const std::size_t warnings = transcode(model, first, second);
  require(transcode(swapped, second, first) == warnings && model.getName() == swapped.description &&
              model.description == swapped.getName(),
          "a text depends on the one before", encoding.name);
  const auto checkText = [&](std::string_view bytes, std::string_view text) {
    if (encoding.converter.empty()) {
      require(text == bytes, "a text of unknown encoding is changed", bytes);
      return;
    }
    require(isUtf8(text) && text.find('\0') == std::string_view::npos, "no text in UTF-8", bytes);
    if (encoding.converter == "ISO-8859-1") {
      require(text == latin1ToUtf8(bytes), "a byte becomes another character", bytes);
    } else if (encoding.converter == "UTF-8" && isUtf8(bytes)) {
      require(text == bytes, "UTF-8 is changed", bytes);
    }
  };
  checkText(first, model.getName().view());
  checkText(second, model.description.view());
}
