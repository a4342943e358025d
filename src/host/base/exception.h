// VornException: the one exception that the host's operations and a bridge throw.
#pragma once

#include "host/base/severity.h"
#include "host/base/text.h"

class VornException {
 public:
  VornException(VornSeverity severity, VornString code, VornString text);
  VornException(const VornException&) = default;
  VornException& operator=(const VornException&) = default;
  virtual ~VornException();

  VornSeverity getSeverity() const { return severity_; }
  // The message's code ("KVB_SRRDM_F0003") and its text with the arguments in place.
  const VornString& getCode() const { return code_; }
  const VornString& getText() const { return text_; }

  // What the message itself does not tell, such as the place in a file. Whoever knows it on the way up sets
  // it; empty when nobody does.
  const VornString& getContext() const { return context_; }
  void setContext(VornString context) { context_ = std::move(context); }
  VornException withContext(const VornString& context) const;
  // The text, and the context in parentheses behind it where there is one.
  VornString getFullText() const;

 private:
  VornSeverity severity_;
  VornString code_;
  VornString text_;
  VornString context_;
};
