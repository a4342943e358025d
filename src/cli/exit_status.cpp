#include "cli/exit_status.h"

namespace cli {

ExitStatus statusOf(const VornException& problem) {
  switch (problem.getFault()) {
    case VornFault::bridge:
      return kNoBridge;
    case VornFault::input:
      return kBadInput;
    case VornFault::output:
      return kCannotWrite;
    case VornFault::internal:
      break;
  }
  return kInternalError;
}

}  // namespace cli
