#include "host/services/input_files.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "host/base/file.h"
#include "host/base/options.h"
#include "host/base/pemo.h"

namespace {

// The system's number for what keeps the file from being read; 0 when nothing does. Looks without opening it:
// to open a pipe and close it again takes it from whoever is to read it.
int findReadError(const VornString& path) {
  if (path.view() == VornFile::kStandardInput) {
    return 0;
  }
  if (::access(path.c_str(), R_OK) != 0) {
    return errno;
  }
  std::error_code error;
  return std::filesystem::is_directory(path.c_str(), error) ? EISDIR : 0;
}

VornException describeProblem(const VornOption& option, int readError) {
  const VornMessageLiteral* message = option.getUnreadableFileMessage();
  if (message == nullptr || option.getValue().empty()) {
    return PEMO::MISSING_INPUT_FILE.makeException({option.getName()});
  }
  return message->makeException({option.getValue()}).withContext(std::strerror(readError));
}

}  // namespace

bool testRequiredInputFiles(const VornOptionList& options, VornLog& log, bool quiet) {
  for (const auto& option : options) {
    const int readError = option->isRequiredFile() ? findReadError(option->getValue()) : 0;
    if (readError != 0) {
      if (!quiet) {
        const VornException problem = describeProblem(*option, readError);
        log.write(problem.getSeverity(), problem.getCode(), problem.getFullText());
      }
      return false;
    }
  }
  return true;
}
