// Text literals (named texts of a bridge or of the host) and the message literals built on them.
#pragma once

#include <array>
#include <memory>
#include <unordered_map>

#include "host/base/exception.h"
#include "host/base/log.h"
#include "host/base/severity.h"
#include "host/base/text.h"

class VornTextLiteral {
 public:
  explicit VornTextLiteral(VornString text) : text_(std::move(text)) {}

  const VornString& getText() const { return text_; }

 private:
  VornString text_;
};

// The text literals of one library, found by name. Base of each library's own collection.
class VornTextLiteralCollection {
 public:
  explicit VornTextLiteralCollection(VornString name) : name_(std::move(name)) {}
  VornTextLiteralCollection(const VornTextLiteralCollection&) = delete;
  VornTextLiteralCollection& operator=(const VornTextLiteralCollection&) = delete;
  virtual ~VornTextLiteralCollection();

  const VornString& getName() const { return name_; }

  // Makes a literal that the collection owns. A name that is there already keeps its first literal.
  const VornTextLiteral& newLiteral(const VornString& name, const VornString& text);
  // The literal of that name, or null.
  const VornTextLiteral* getLiteral(const VornString& name) const;

 private:
  VornString name_;
  std::unordered_map<VornString, std::unique_ptr<VornTextLiteral>> literals_;
};

// The texts that take the places {0} to {19} of a message; those a message does not use stay empty.
using VornMessageArguments = std::array<VornString, 20>;

// A message: a code, a severity and a text with numbered places.
class VornMessageLiteral {
 public:
  // `text` must outlive the message. `fault` is for exceptions.
  VornMessageLiteral(VornString code, const VornTextLiteral& text, VornSeverity severity,
                     VornFault fault = VornFault::internal)
      : code_(std::move(code)), text_(text), severity_(severity), fault_(fault) {}

  const VornString& getCode() const { return code_; }
  const VornString& getText() const { return text_.getText(); }

  // The arguments are texts of the log's source (VornLog::decode), the path of which is none.
  void log(VornLog& log, const VornMessageArguments& arguments = {}) const;
  // An exception with the message's code, fault and severity, and its text with the arguments.
  VornException makeException(const VornMessageArguments& arguments = {}) const;
  // Throws that exception.
  [[noreturn]] void throwException(const VornMessageArguments& arguments = {}) const;

 private:
  VornString render(const VornMessageArguments& arguments) const;

  VornString code_;
  const VornTextLiteral& text_;
  VornSeverity severity_;
  VornFault fault_;
};
