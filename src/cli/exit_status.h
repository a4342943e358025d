// What the program's exit status says.
#pragma once

namespace cli {

enum ExitStatus {
  kDone = 0,         // warnings allowed
  kAnswerIsNo = 1,   // there were warnings and none were wanted
  kUsage = 2,        // the arguments make no sense
  kBadInput = 3,     // the export cannot be read or is none: nothing is saved
  kCannotWrite = 5,  // the output cannot be written
  kNoBridge = 6,     // no plug-in, or one that does not fit
  kInternalError = 7,
};

}  // namespace cli
