// What the program's exit status says.
#pragma once

#include "host/base/exception.h"

namespace cli {

enum ExitStatus {
  kDone = 0,         // warnings allowed
  kAnswerIsNo = 1,   // there were warnings and none were wanted
  kUsage = 2,        // the arguments make no sense
  kBadInput = 3,     // the export cannot be read or is none: nothing is saved
  kSomeFailed = 4,   // of many imports
  kCannotWrite = 5,  // the output cannot be written
  kNoBridge = 6,     // no plug-in, or one that does not fit
  kInternalError = 7,
};

struct ExitStatusText {
  ExitStatus status;
  const char* text;
};

// Descriptions shown to users.
inline constexpr ExitStatusText kExitStatusTexts[] = {
    {kDone, "Done; there may have been warnings."},
    {kAnswerIsNo, "There were warnings, and --fail-on-warning was given."},
    {kUsage, "The command line is not valid."},
    {kBadInput, "The export cannot be read or is not an export: nothing is saved."},
    {kSomeFailed, "Some of many imports failed."},
    {kCannotWrite, "The output cannot be written."},
    {kNoBridge, "The plug-in cannot be loaded."},
    {kInternalError, "An internal error."},
};

// The exit status of a command that failed so.
ExitStatus statusOf(const VornException& problem);

}  // namespace cli
