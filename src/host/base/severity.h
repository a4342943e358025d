// The severities of messages. Fatal, warning and status messages come from message literals, whose numbers
// these are.
#pragma once

#include <string_view>

enum class VornSeverity { fatal = 1, error = 2, warning = 3, status = 4, debug = 5 };

// The word that begins a log line of the severity.
constexpr std::string_view getSeverityName(VornSeverity severity) {
  switch (severity) {
    case VornSeverity::fatal:
      return "FATAL";
    case VornSeverity::error:
      return "ERROR";
    case VornSeverity::warning:
      return "WARNING";
    case VornSeverity::status:
      return "STATUS";
    case VornSeverity::debug:
      return "DEBUG";
  }
  return "";
}
