#include "host/base/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "host/base/system_error.h"

namespace {

constexpr std::size_t kBufferSize = std::size_t{64} * 1024;

}  // namespace

VornFile::~VornFile() {
  close();
}

VornFile& VornFile::operator=(const VornString& path) {
  path_ = path;
  return *this;
}

VornString VornFile::getDisplayName() const {
  return path_.view() == kStandardInput ? VornString("standard input") : path_;
}

bool VornFile::open(int mode) {
  close();
  if ((mode & kRead) == 0) {
    error_ = std::make_error_code(std::errc::invalid_argument);
    return false;
  }
  descriptor_ = path_.view() == kStandardInput ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                               : ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor_ < 0) {
    error_ = lastSystemError();
    return false;
  }
  struct stat status {};
  if (::fstat(descriptor_, &status) == 0 && S_ISDIR(status.st_mode)) {
    close();
    error_ = std::make_error_code(std::errc::is_a_directory);
    return false;
  }
  if (!buffer_) {
    buffer_ = std::make_unique_for_overwrite<char[]>(kBufferSize);
  }
  return true;
}

std::size_t VornFile::readThroughBuffer(char* bytes, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    if (next_ == end_ && !fillBuffer()) {
      break;
    }
    const std::size_t part = std::min(count - done, static_cast<std::size_t>(end_ - next_));
    std::memcpy(bytes + done, next_, part);
    next_ += part;
    done += part;
  }
  return done;
}

bool VornFile::fillBuffer() {
  ssize_t got = -1;
  do {
    got = descriptor_ < 0 ? 0 : ::read(descriptor_, buffer_.get(), kBufferSize);
  } while (got < 0 && errno == EINTR);
  if (got <= 0) {
    error_ = got < 0 ? lastSystemError() : std::error_code();
    endOfFile_ = true;
    return false;
  }
  next_ = buffer_.get();
  end_ = next_ + got;
  behindBuffer_ += static_cast<std::size_t>(got);
  return true;
}

std::size_t VornFile::getSize() const {
  struct stat status {};
  return ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode)
             ? static_cast<std::size_t>(status.st_size)
             : 0;
}

bool VornFile::close() {
  const bool wasOpen = descriptor_ >= 0;
  if (wasOpen) {
    ::close(descriptor_);
  }
  descriptor_ = -1;
  next_ = end_ = nullptr;
  behindBuffer_ = 0;
  endOfFile_ = false;
  error_.clear();
  return wasOpen;
}
