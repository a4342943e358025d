// The literals from which a bridge's options are made: a bridge declares each option once, as data, and the
// option list, the help and the checks all come from it.
#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "host/base/literals.h"
#include "host/base/options.h"

// What the file of an option is opened for.
enum class OpenMode { read = 0, write = 1 };

// One choice of an option.
class VornBridgeEnumValueLiteral {
 public:
  // `name` is the option's value when the choice is taken. The text literal must outlive this one.
  VornBridgeEnumValueLiteral(VornString name, const VornTextLiteral& displayText)
      : name_(std::move(name)), displayText_(displayText) {}

  const VornString& getName() const { return name_; }
  const VornString& getDisplayText() const { return displayText_.getText(); }

 private:
  VornString name_;
  const VornTextLiteral& displayText_;
};

// The choices of an option, in order. They must outlive the list.
class VornBridgeOptionEnumerationLiteral {
 public:
  using Choices = std::vector<const VornBridgeEnumValueLiteral*>;

  explicit VornBridgeOptionEnumerationLiteral(Choices choices) : choices_(std::move(choices)) {}

  const Choices& getChoices() const { return choices_; }

 private:
  Choices choices_;
};

// An option. All literals it is made of must outlive it.
class VornBridgeOptionLiteral {
 public:
  // An option with choices.
  VornBridgeOptionLiteral(VornString name, VornOption::Kind kind, const VornTextLiteral& displayName,
                          const VornTextLiteral& description,
                          const VornBridgeOptionEnumerationLiteral& choices,
                          const VornBridgeEnumValueLiteral& defaultChoice);
  // An option without choices.
  VornBridgeOptionLiteral(VornString name, VornOption::Kind kind, const VornTextLiteral& displayName,
                          const VornTextLiteral& description, const VornTextLiteral& defaultText);

  // A new option with the default as its value. `basic`: a host shows it at first, not among further
  // settings.
  std::unique_ptr<VornOption> generateOption(bool basic) const;
  // The same for a file. `extensions` ends with a null entry; `required` says that the option must be given.
  std::unique_ptr<VornOption> generateOption(bool basic, const char* const* extensions, OpenMode mode,
                                             bool required) const;

 private:
  VornString name_;
  VornOption::Kind kind_;
  const VornTextLiteral& displayName_;
  const VornTextLiteral& description_;
  const VornBridgeOptionEnumerationLiteral* choices_;
  const VornString& default_;
};
