#include "host/base/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "host/base/pemo.h"
#include "host/base/system_error.h"

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

constexpr const char* kOpenFiles = "/proc/self/fd/";  // the process's own, by number

mode_t currentUmask() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return mask;
}

}  // namespace

VornOutputFile::VornOutputFile(std::string path)
    : VornOutput(kBufferSize), path_(std::move(path)), target_(followLinks(path_)) {
  if (path_ == kStandardOutput) {
    descriptor_ = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
  } else {
    struct stat status {};
    const bool exists = isThere(status, path_);
    if (exists && !S_ISREG(status.st_mode)) {
      // By the path as given: what the link /dev/stdout reads as, for a pipe, is no path.
      descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CLOEXEC);
    } else {
      openTemporary();
      // The new file is as readable as the one it replaces, or as any new file. Rights that a program has by
      // its file (setuid and the like) were given to the old content.
      ::fchmod(descriptor_, exists ? status.st_mode & 0777 : 0666 & ~currentUmask());
    }
  }
  if (descriptor_ < 0) {
    fail(lastSystemError());
  }
}

bool VornOutputFile::isThere(struct stat& status, const std::string& path) {
  const bool exists = ::stat(path.c_str(), &status) == 0;
  const std::error_code problem = exists ? std::error_code() : lastSystemError();
  if (problem && problem != std::errc::no_such_file_or_directory) {
    failOn(path, problem);
  }
  if (exists && S_ISDIR(status.st_mode)) {
    failOn(path, std::make_error_code(std::errc::is_a_directory));
  }
  return exists;
}

void VornOutputFile::check(const std::string& path, bool mayReplace) {
  if (path == kStandardOutput) {
    return;
  }
  struct stat status {};
  const bool exists = isThere(status, path);
  const bool isFile = !exists || S_ISREG(status.st_mode);
  if (exists && isFile && !mayReplace) {
    failOn(path, std::make_error_code(std::errc::file_exists));
  }
  // What is no regular file is opened itself; of the others only the folder matters.
  const std::filesystem::path folder = std::filesystem::path(followLinks(path)).replace_filename(".");
  if (::access(isFile ? folder.c_str() : path.c_str(), isFile ? W_OK | X_OK : W_OK) != 0) {
    failOn(path, lastSystemError());
  }
}

VornOutputFile::~VornOutputFile() {
  if (descriptor_ >= 0) {
    ::close(descriptor_);
  }
}

std::string VornOutputFile::followLinks(const std::string& path) {
  constexpr int kMostLinks = 40;  // the system's own limit
  std::filesystem::path target = path;
  std::error_code noLink;
  for (int links = 0; links < kMostLinks; ++links) {
    const std::filesystem::path link = std::filesystem::read_symlink(target, noLink);
    if (noLink) {
      break;
    }
    target = target.parent_path() / link;
  }
  return target.string();
}

void VornOutputFile::openTemporary() {
  // A file without a name goes with the process, even with one that is killed. Not every file system has
  // them.
  const std::filesystem::path folder = std::filesystem::path(target_).replace_filename(".");
  if (::access(kOpenFiles, X_OK) == 0) {
    descriptor_ = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    unnamed_ = descriptor_ >= 0;
  }
  if (unnamed_) {
    return;
  }
  // A short separate name: a long output name with a suffix could be too long.
  std::string name = std::filesystem::path(target_).replace_filename(".vorn.XXXXXX").string();
  descriptor_ = ::mkostemp(name.data(), O_CLOEXEC);
  if (descriptor_ < 0) {
    fail(lastSystemError());
  }
  temporary_.set(std::move(name));
}

void VornOutputFile::take(const char* bytes, std::size_t count) {
  if (error_) {
    fail(error_);
  }
  for (std::size_t done = 0; done < count;) {
    const ssize_t put = ::write(descriptor_, bytes + done, count - done);
    if (put >= 0) {
      done += static_cast<std::size_t>(put);
    } else if (errno != EINTR) {
      error_ = lastSystemError();
      fail(error_);
    }
  }
  written_ += count;
  if (tell_ && std::this_thread::get_id() == home_) {
    tell_(written_);
  }
}

void VornOutputFile::writeStraight(const char* bytes, std::size_t count) {
  flush();
  take(bytes, count);
}

void VornOutputFile::giveName() {
  const std::string file = kOpenFiles + std::to_string(descriptor_);
  const auto link = [&](const std::string& name) {
    return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
  };
  if (link(target_)) {
    temporary_.set(target_);  // until all is well
    return;
  }
  std::error_code reason = lastSystemError();
  // A link replaces nothing: what is there already is replaced by way of a second name.
  const std::string stem =
      std::filesystem::path(target_).replace_filename(".vorn." + std::to_string(::getpid()) + ".").string();
  for (int number = 0; reason == std::errc::file_exists; ++number) {
    if (std::string name = stem + std::to_string(number); link(name)) {
      temporary_.set(std::move(name));
      return;
    }
    reason = lastSystemError();
  }
  fail(reason);
}

void VornOutputFile::commit() {
  flush();
  if (unnamed_) {
    giveName();
  }
  const int closing = descriptor_;
  descriptor_ = -1;
  if (::close(closing) != 0) {
    fail(lastSystemError());
  }
  if (const std::error_code error = temporary_.renameTo(target_)) {
    fail(error);
  }
}

void VornOutputFile::failOn(const std::string& path, std::error_code error) {
  PEMO::CANNOT_WRITE_FILE.throwException(
      {VornString(path == kStandardOutput ? std::string_view("standard output") : path),
       VornString(error.message())});
}
