#include "host/services/blib.h"

#include <deque>

#include "host/encoding/encodings.h"

namespace {

class EncodingLiterals final : public VornTextLiteralCollection {
 public:
  EncodingLiterals() : VornTextLiteralCollection("VornEncodings") {}
};

const std::deque<VornBridgeEnumValueLiteral>& encodingChoices() {
  static EncodingLiterals literals;
  static const auto choices = [] {
    std::deque<VornBridgeEnumValueLiteral> made;
    for (const VornEncoding& encoding : getEncodings()) {
      const VornString name(encoding.name);
      made.emplace_back(name, literals.newLiteral(name, name));
    }
    return made;
  }();
  return choices;
}

VornBridgeOptionEnumerationLiteral::Choices pointers(const std::deque<VornBridgeEnumValueLiteral>& literals) {
  VornBridgeOptionEnumerationLiteral::Choices choices;
  for (const VornBridgeEnumValueLiteral& literal : literals) {
    choices.push_back(&literal);
  }
  return choices;
}

const VornBridgeEnumValueLiteral& defaultEncoding() {
  const auto number = &getDefaultEncoding() - getEncodings().data();
  return encodingChoices()[static_cast<std::size_t>(number)];
}

}  // namespace

const VornBridgeOptionEnumerationLiteral BLIB::BP_ENCODING_ENUM(pointers(encodingChoices()));
const VornBridgeEnumValueLiteral& BLIB::BP_ENCODING_ENUM_WESTERN_EUROPEAN__WINDOWS_1252_ = defaultEncoding();
