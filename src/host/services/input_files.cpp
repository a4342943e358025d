#include "host/services/input_files.h"

#include <unistd.h>

#include <filesystem>

#include "host/base/file.h"
#include "host/base/options.h"
#include "host/base/pemo.h"
#include "host/base/system_error.h"

namespace {

// Returns why the file cannot be read, or no error. Does not open it: opening and closing a pipe takes it
// away from its reader.
std::error_code findReadError(const VornString& path) {
  if (path.view() == VornFile::kStandardInput) {
    return {};
  }
  if (::access(path.c_str(), R_OK) != 0) {
    return lastSystemError();
  }
  std::error_code error;
  return std::filesystem::is_directory(path.c_str(), error) ? std::make_error_code(std::errc::is_a_directory)
                                                            : std::error_code();
}

VornException describeProblem(const VornOption& option, std::error_code readError) {
  const VornMessageLiteral* message = option.getUnreadableFileMessage();
  if (message == nullptr || option.getValue().empty()) {
    return PEMO::MISSING_INPUT_FILE.makeException({option.getName()});
  }
  return message->makeException({option.getValue()}).withContext(VornString(readError.message()));
}

}  // namespace

bool testRequiredInputFiles(const VornOptionList& options, VornLog& log, bool quiet) {
  for (const auto& option : options) {
    const std::error_code readError =
        option->isRequiredFile() ? findReadError(option->getValue()) : std::error_code();
    if (readError) {
      if (!quiet) {
        const VornException problem = describeProblem(*option, readError);
        log.write(problem.getSeverity(), problem.getCode(), problem.getFullText());
      }
      return false;
    }
  }
  return true;
}
