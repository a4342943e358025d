#include "host/std/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "host/constants/pemo.h"

namespace {

mode_t currentUmask() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return mask;
}

}  // namespace

VornOutputFile::VornOutputFile(std::string path)
    : path_(std::move(path)), target_(path_), buffer_(std::make_unique<char[]>(kBufferSize)) {
  if (path_ == kStandardOutput) {
    descriptor_ = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
  } else {
    std::error_code ignored;
    if (const auto real = std::filesystem::weakly_canonical(path_, ignored); !ignored) {
      target_ = real.string();
    }
    struct stat status {};
    const bool exists = ::stat(target_.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) {
      fail(EISDIR);
    }
    if (exists && !S_ISREG(status.st_mode)) {
      descriptor_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
    } else {
      openTemporary();
      // The new file is as readable as the one it replaces, or as any new file.
      ::fchmod(descriptor_, exists ? status.st_mode & 07777 : 0666 & ~currentUmask());
    }
  }
  if (descriptor_ < 0) {
    fail(errno);
  }
}

VornOutputFile::~VornOutputFile() {
  if (descriptor_ >= 0) {
    ::close(descriptor_);
  }
  if (!temporary_.empty()) {
    ::unlink(temporary_.c_str());
  }
}

void VornOutputFile::openTemporary() {
  std::string name = target_ + ".XXXXXX";
  descriptor_ = ::mkostemp(name.data(), O_CLOEXEC);
  if (descriptor_ < 0) {
    fail(errno);
  }
  temporary_ = std::move(name);
}

void VornOutputFile::keep(const char* bytes, std::size_t count) {
  std::memcpy(buffer_.get() + used_, bytes, count);
  used_ += count;
}

void VornOutputFile::writeThrough(const char* bytes, std::size_t count) {
  while (count > 0) {
    if (used_ == kBufferSize) {
      flush();
    }
    const std::size_t part = std::min(count, kBufferSize - used_);
    keep(bytes, part);
    bytes += part;
    count -= part;
  }
}

void VornOutputFile::flush() {
  for (std::size_t done = 0; done < used_;) {
    const ssize_t put = ::write(descriptor_, buffer_.get() + done, used_ - done);
    if (put >= 0) {
      done += static_cast<std::size_t>(put);
    } else if (errno != EINTR) {
      fail(errno);
    }
  }
  used_ = 0;
}

void VornOutputFile::commit() {
  flush();
  const int closing = descriptor_;
  descriptor_ = -1;
  if (::close(closing) != 0) {
    fail(errno);
  }
  if (temporary_.empty()) {
    return;
  }
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) {
    fail(errno);
  }
  temporary_.clear();
}

void VornOutputFile::fail(int error) const {
  PEMO::CANNOT_WRITE_FILE.throwException(
      {VornString(path_ == kStandardOutput ? std::string_view("standard output") : path_),
       std::strerror(error)});
}
