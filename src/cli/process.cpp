#include "cli/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "host/base/temporary_name.h"

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

constexpr int kAskToEnd[] = {SIGHUP, SIGINT, SIGTERM};

volatile std::sig_atomic_t deferredSignal = 0;

void defer(int signal) {
  deferredSignal = signal;
  handle(signal, end);
}

}  // namespace

void endOn(int signal) {
  handle(signal, end);
}

void deferEnding() {
  for (const int signal : kAskToEnd) {
    if (!isIgnored(signal)) {
      handle(signal, defer);
    }
  }
}

int getDeferredSignal() {
  return deferredSignal;
}

void endWithoutDelay() {
  for (const int signal : kAskToEnd) {
    if (!isIgnored(signal)) {
      endOn(signal);
    }
  }
  if (deferredSignal != 0) {
    static_cast<void>(std::raise(deferredSignal));
  }
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
