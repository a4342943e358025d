// Put before the system's library by LD_PRELOAD, has its calls for files fail as VORN_FAULTS tells: with
// "read 2 5,write 1 -15" every read from the second on fails with errno 5 (with 0: the file ends there), and
// signal 15 comes at the first write; VORN_WORKER_FAULTS tells it for the processes that are forked. Of what
// is opened and closed, files without a name and files that are written count.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

const pid_t loader = ::getpid();

// Whether this call of `name` is to fail; errno says how.
bool fails(std::string_view name, int& calls) {
  ++calls;
  const char* faults = std::getenv(::getpid() == loader ? "VORN_FAULTS" : "VORN_WORKER_FAULTS");
  const std::string all = std::string(",") + (faults == nullptr ? "" : faults);
  const std::size_t found = all.find("," + std::string(name) + " ");
  int first = 0;
  int fault = 0;
  if (found == std::string::npos ||
      std::sscanf(all.c_str() + found + name.size() + 2, "%d %d", &first, &fault) != 2 || calls < first) {
    return false;
  }
  errno = fault;
  return fault >= 0 || std::raise(-fault) != 0;
}

// NAME as the system has it.
template <class Function>
Function* original(const char* name, Function* /*alike*/) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

ssize_t read(int file, void* bytes, std::size_t count) {
  static int calls = 0;
  return fails("read", calls) ? (errno == 0 ? 0 : -1) : original("read", &::read)(file, bytes, count);
}

ssize_t write(int file, const void* bytes, std::size_t count) {
  static int calls = 0;
  return fails("write", calls) ? -1 : original("write", &::write)(file, bytes, count);
}

int open(const char* path, int flags, ...) {
  static int calls = 0;
  constexpr mode_t kMode = 0600;
  const bool counts = (flags & O_TMPFILE) == O_TMPFILE;
  return counts && fails("open", calls) ? -1 : original("open", &::open)(path, flags, kMode);
}

int close(int file) {
  static int calls = 0;
  const bool counts = (::fcntl(file, F_GETFL) & O_ACCMODE) == O_WRONLY;
  return counts && fails("close", calls) ? -1 : original("close", &::close)(file);
}

int linkat(int from, const char* file, int to, const char* name, int flags) {
  static int calls = 0;
  return fails("linkat", calls) ? -1 : original("linkat", &::linkat)(from, file, to, name, flags);
}

ssize_t readlink(const char* path, char* target, std::size_t size) noexcept {
  static int calls = 0;
  return fails("readlink", calls) ? -1 : original("readlink", &::readlink)(path, target, size);
}

int rename(const char* from, const char* to) noexcept {
  static int calls = 0;
  return fails("rename", calls) ? -1 : original("rename", &::rename)(from, to);
}
}
