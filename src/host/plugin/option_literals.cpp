#include "host/plugin/option_literals.h"

VornBridgeOptionLiteral::VornBridgeOptionLiteral(VornString name, VornOption::Kind kind,
                                                 const VornTextLiteral& displayName,
                                                 const VornTextLiteral& description,
                                                 const VornBridgeOptionEnumerationLiteral& choices,
                                                 const VornBridgeEnumValueLiteral& defaultChoice)
    : name_(std::move(name)),
      kind_(kind),
      displayName_(displayName),
      description_(description),
      choices_(&choices),
      default_(defaultChoice.getName()) {
}

VornBridgeOptionLiteral::VornBridgeOptionLiteral(VornString name, VornOption::Kind kind,
                                                 const VornTextLiteral& displayName,
                                                 const VornTextLiteral& description,
                                                 const VornTextLiteral& defaultText)
    : name_(std::move(name)),
      kind_(kind),
      displayName_(displayName),
      description_(description),
      choices_(nullptr),
      default_(defaultText.getText()) {
}

std::unique_ptr<VornOption> VornBridgeOptionLiteral::generateOption(bool basic) const {
  auto option =
      std::make_unique<VornOption>(name_, kind_, displayName_.getText(), description_.getText(), default_);
  option->setBasic(basic);
  if (choices_ != nullptr) {
    std::vector<VornString> names;
    for (const VornBridgeEnumValueLiteral* choice : choices_->getChoices()) {
      names.push_back(choice->getName());
    }
    option->setChoices(std::move(names));
  }
  return option;
}

std::unique_ptr<VornOption> VornBridgeOptionLiteral::generateOption(bool basic, const char* const* extensions,
                                                                    OpenMode mode, bool required) const {
  auto option = generateOption(basic);
  std::vector<VornString> names;
  for (; *extensions != nullptr; ++extensions) {
    names.emplace_back(*extensions);
  }
  option->setExtensions(std::move(names));
  option->setRequiredFile(required && mode == OpenMode::read);
  return option;
}
