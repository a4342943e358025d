// The parameters that a bridge offers and that a host hands back with values.
#pragma once

#include <memory>
#include <vector>

#include "host/base/text.h"

class VornMessageLiteral;

// One parameter: what a user is shown of it, its choices, and its value.
class VornOption {
 public:
  enum class Kind { text, choice = 1, file = 5 };

  // `name` is the key of the option; the value starts as `defaultValue`.
  VornOption(VornString name, Kind kind, VornString displayName, VornString description,
             VornString defaultValue);

  const VornString& getName() const { return name_; }
  Kind getKind() const { return kind_; }
  const VornString& getDisplayName() const { return displayName_; }
  const VornString& getDescription() const { return description_; }
  const VornString& getDefault() const { return default_; }

  const VornString& getValue() const { return value_; }
  void setValue(VornString value) { value_ = std::move(value); }

  // The values to choose from, in order; empty for an option of another kind.
  const std::vector<VornString>& getChoices() const { return choices_; }
  void setChoices(std::vector<VornString> choices) { choices_ = std::move(choices); }

  // The file name extensions, without the dot, of an option of kind `file`.
  const std::vector<VornString>& getExtensions() const { return extensions_; }
  void setExtensions(std::vector<VornString> extensions) { extensions_ = std::move(extensions); }

  // Whether the value must name a file that can be read.
  bool isRequiredFile() const { return requiredFile_; }
  void setRequiredFile(bool required) { requiredFile_ = required; }

  // What a bridge says when the file cannot be read, {0} being its path; null: the host says it.
  const VornMessageLiteral* getUnreadableFileMessage() const { return unreadableFileMessage_; }
  void setUnreadableFileMessage(const VornMessageLiteral& message) { unreadableFileMessage_ = &message; }

  // Whether a host shows the option at first, or only among its further settings.
  bool isBasic() const { return basic_; }
  void setBasic(bool basic) { basic_ = basic; }

 private:
  VornString name_;
  Kind kind_;
  VornString displayName_;
  VornString description_;
  VornString default_;
  VornString value_;
  std::vector<VornString> choices_;
  std::vector<VornString> extensions_;
  bool requiredFile_ = false;
  const VornMessageLiteral* unreadableFileMessage_ = nullptr;
  bool basic_ = true;
};

// The options of one bridge, in the bridge's order, found by name.
class VornOptionList {
 public:
  // Takes the option. False, and the option is dropped, when one of that name is there already.
  bool add(std::unique_ptr<VornOption> option);
  void removeAll() { options_.clear(); }

  std::size_t getCount() const { return options_.size(); }
  // Null when there is no such option.
  VornOption* get(const VornString& name);
  const VornOption* get(const VornString& name) const;
  // The value of the option of that name; the empty text when there is none.
  VornString getValue(const VornString& name) const;

  auto begin() const { return options_.begin(); }
  auto end() const { return options_.end(); }

 private:
  std::vector<std::unique_ptr<VornOption>> options_;
};
