#include "host/bridgelib/input_files.h"

#include <algorithm>

#include "host/constants/pemo.h"
#include "host/std/file.h"
#include "host/std/options.h"

bool testRequiredInputFiles(const VornOptionList& options, VornLog& log, bool quiet) {
  const auto missing = std::find_if(options.begin(), options.end(), [](const auto& option) {
    return option->isRequiredFile() && !VornFile(option->getValue()).open(VornFile::kRead);
  });
  if (missing == options.end()) {
    return true;
  }
  if (!quiet) {
    PEMO::MISSING_INPUT_FILE.log(log, {(*missing)->getName()});
  }
  return false;
}
