// VornException: the exception of the host's and a bridge's operations.
#pragma once

#include <exception>

#include "host/base/severity.h"
#include "host/base/text.h"

// What is at fault.
enum class VornFault {
  internal,  // the program, or a lack of memory
  bridge,    // a plug-in that cannot be used
  input,     // what is read
  output,    // where something is written to
};

class VornException : public std::exception {
 public:
  VornException(VornFault fault, VornSeverity severity, VornString code, VornString text);

  VornFault getFault() const { return fault_; }
  VornSeverity getSeverity() const { return severity_; }
  // The message's code ("KVB_SRRDM_F0003"), and its text with the arguments filled in.
  const VornString& getCode() const { return code_; }
  const VornString& getText() const { return text_; }

  // What the message does not say, such as the place in a file. Set by callers on the way up that know it.
  const VornString& getContext() const { return context_; }
  void setContext(VornString context);
  VornException withContext(const VornString& context) const;

  // The text, followed by the context in parentheses if there is one.
  VornString getFullText() const;

  // The code and the full text.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  VornFault fault_;
  VornSeverity severity_;
  VornString code_;
  VornString text_;
  VornString context_;
  VornString what_;
};
