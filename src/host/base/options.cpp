#include "host/base/options.h"

#include <algorithm>
#include <utility>

VornOption::VornOption(VornString name, Kind kind, VornString displayName, VornString description,
                       VornString defaultValue)
    : name_(std::move(name)),
      kind_(kind),
      displayName_(std::move(displayName)),
      description_(std::move(description)),
      default_(std::move(defaultValue)),
      value_(default_) {
}

bool VornOptionList::add(std::unique_ptr<VornOption> option) {
  if (get(option->getName()) != nullptr) {
    return false;
  }
  options_.push_back(std::move(option));
  return true;
}

const VornOption* VornOptionList::get(const VornString& name) const {
  const auto found = std::find_if(options_.begin(), options_.end(),
                                  [&](const auto& option) { return option->getName() == name; });
  return found == options_.end() ? nullptr : found->get();
}

VornOption* VornOptionList::get(const VornString& name) {
  return const_cast<VornOption*>(std::as_const(*this).get(name));
}

VornString VornOptionList::getValue(const VornString& name) const {
  const VornOption* option = get(name);
  return option == nullptr ? VornString() : option->getValue();
}
