#include "host/services/transcoder.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/ustring.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "host/base/pemo.h"
#include "host/base/unicode.h"
#include "host/encoding/encodings.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"
#include "host/services/view_sources.h"

namespace {

// Called by ICU for what it cannot convert; `context` is a flag to raise.
void replaceInvalid(const void* context, UConverterToUnicodeArgs* arguments, const char* /*bytes*/,
                    std::int32_t /*length*/, UConverterCallbackReason reason, UErrorCode* error) {
  constexpr UChar kReplacement = 0xFFFD;
  if (reason <= UCNV_IRREGULAR) {
    *static_cast<bool*>(const_cast<void*>(context)) = true;
    *error = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(arguments, &kReplacement, 1, 0, error);
  }
}

class Converter {
 public:
  explicit Converter(const VornEncoding& encoding) {
    UErrorCode status = U_ZERO_ERROR;
    converter_.reset(ucnv_open(std::string(encoding.converter).c_str(), &status));
    ucnv_setToUCallBack(converter_.get(), replaceInvalid, &invalid_, nullptr, nullptr, &status);
    if (U_FAILURE(status) != 0) {
      throw std::runtime_error("ICU has no converter " + std::string(encoding.converter));
    }
    keepsAscii_ = findOutWhetherAsciiIsKept();
  }

  // Converts the text in place. False when some of its bytes were not valid.
  bool convert(VornString& text) {
    if (keepsAscii_ && isAscii(text.view())) {
      return true;
    }
    invalid_ = false;
    text = VornString(decode(text.view()));
    return !invalid_;
  }

  std::string decode(std::string_view text) {
    return keepsAscii_ && isAscii(text) ? std::string(text) : toUtf8(text);
  }

 private:
  bool findOutWhetherAsciiIsKept() {
    std::string ascii;
    for (char byte = 1; byte > 0 && byte < 127; ++byte) {
      ascii += byte;
    }
    return toUtf8(ascii) == ascii;
  }

  std::string toUtf8(std::string_view bytes) {
    const auto length = static_cast<std::int32_t>(bytes.size());
    UErrorCode status = U_ZERO_ERROR;
    units_.resize(bytes.size() * 2 + 1);  // no encoding makes more than two units of a byte
    const std::int32_t units =
        ucnv_toUChars(converter_.get(), units_.data(), static_cast<std::int32_t>(units_.size()), bytes.data(),
                      length, &status);
    std::string text(static_cast<std::size_t>(units) * 3, '\0');
    std::int32_t written = 0;
    u_strToUTF8WithSub(text.data(), static_cast<std::int32_t>(text.size()), &written, units_.data(), units,
                       0xFFFD, nullptr, &status);
    if (U_FAILURE(status) != 0) {
      throw std::runtime_error(std::string("ICU cannot convert a text: ") + u_errorName(status));
    }
    text.resize(static_cast<std::size_t>(written));
    std::erase(text, '\0');  // no converter is known to make one, but a text must not hold any
    return text;
  }

  struct Closer {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
  };
  std::unique_ptr<UConverter, Closer> converter_;
  std::u16string units_;
  bool invalid_ = false;
  bool keepsAscii_ = false;
};

class TextTranscoder final : public VornTraversalOperation, private VornTextVisitor {
 public:
  explicit TextTranscoder(const VornEncoding& encoding) : converter_(encoding) {}

  void process(VornObject& object, void* /*user*/) override { object.visitTexts(*this); }

  std::int32_t getInvalidTexts() const { return invalidTexts_; }

 private:
  void visit(VornString& text) override {
    invalidTexts_ += static_cast<std::int32_t>(!converter_.convert(text));
  }

  Converter converter_;
  std::int32_t invalidTexts_ = 0;
};

}  // namespace

void VornTranscoder::transcodeModel(VornLog& log, VornStoreModel& model, const VornString& encoding) {
  const VornEncoding& chosen = getEncodingOfChoice(encoding.view());
  if (chosen.converter.empty()) {
    return;
  }
  const VornUndecodedViews views(model);
  TextTranscoder transcoder(chosen);
  model.depthTraversal(transcoder, nullptr);
  log.setSourceDecoder({});
  views.findSources(log);
  if (transcoder.getInvalidTexts() > 0) {
    PEMO::INVALID_BYTE_SEQUENCES.log(log,
                                     {VornString(transcoder.getInvalidTexts()), VornString(chosen.name)});
  }
}

std::function<std::string(std::string_view)> VornTranscoder::makeDecoder(const VornString& encoding) {
  const VornEncoding& chosen = getEncodingOfChoice(encoding.view());
  if (chosen.converter.empty()) {
    return {};
  }
  return [converter = std::make_shared<Converter>(chosen)](std::string_view text) {
    return converter->decode(text);
  };
}
