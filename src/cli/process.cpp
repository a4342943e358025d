#include "cli/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "host/std/temporary_name.h"

namespace cli {

namespace {

void end(int signal) {
  VornTemporaryName::removeAll();
  static_cast<void>(std::raise(signal));  // which does by now what it does without a handler
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
  ::sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal) {
  struct sigaction action {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void endOn(int signal) {
  handle(signal, end);
}

void prepareProcess() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) < 0) {
      ::open("/dev/null",
             stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);  // takes the lowest number that is free
    }
  }
  handle(SIGXFSZ, SIG_IGN);
  for (const int signal : {SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGTERM, SIGXCPU}) {
    if (!isIgnored(signal)) {
      endOn(signal);
    }
  }
}

}  // namespace cli
