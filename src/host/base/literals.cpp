#include "host/base/literals.h"

#include <algorithm>
#include <charconv>

VornTextLiteralCollection::~VornTextLiteralCollection() = default;

const VornTextLiteral& VornTextLiteralCollection::newLiteral(const VornString& name, const VornString& text) {
  auto& literal = literals_[name];
  if (!literal) {
    literal = std::make_unique<VornTextLiteral>(text);
  }
  return *literal;
}

const VornTextLiteral* VornTextLiteralCollection::getLiteral(const VornString& name) const {
  const auto found = literals_.find(name);
  return found == literals_.end() ? nullptr : found->second.get();
}

void VornMessageLiteral::log(VornLog& log, const VornMessageArguments& arguments) const {
  VornMessageArguments decoded;
  std::ranges::transform(arguments, decoded.begin(), [&](const VornString& argument) {
    return argument.empty() ? argument : VornString(log.decode(argument.view()));
  });
  log.write(severity_, code_, render(decoded));
}

VornException VornMessageLiteral::makeException(const VornMessageArguments& arguments) const {
  return {fault_, severity_, code_, render(arguments)};
}

void VornMessageLiteral::throwException(const VornMessageArguments& arguments) const {
  throw makeException(arguments);
}

VornString VornMessageLiteral::render(const VornMessageArguments& arguments) const {
  std::string rendered;
  std::string_view rest = getText().view();
  while (!rest.empty()) {
    const std::size_t brace = std::min(rest.find('{'), rest.size());
    rendered += rest.substr(0, brace);
    rest.remove_prefix(brace);
    std::size_t number = 0;
    const char* end = rest.data() + rest.size();
    const auto [behind, error] = std::from_chars(rest.data() + (rest.empty() ? 0 : 1), end, number);
    if (error == std::errc{} && behind != end && *behind == '}' && number < arguments.size()) {
      rendered += arguments[number].view();
      rest.remove_prefix(static_cast<std::size_t>(behind + 1 - rest.data()));
    } else if (!rest.empty()) {
      rendered += rest.front();
      rest.remove_prefix(1);
    }
  }
  return VornString(rendered);
}
