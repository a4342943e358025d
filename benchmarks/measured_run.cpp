// measured-run: runs a program, silenced, and tells how long it took and how much memory it held at its peak.
//
//   measured-run PROGRAM [ARGUMENT]...     writes "SECONDS CPU_SECONDS PEAK_BYTES"; the exit status is the
//   program's
//
// A program's peak, as the system tells it, is at least the size of the process that started it; this one is
// small.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

double inSeconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: measured-run PROGRAM [ARGUMENT]...\n", stderr);
    return 2;
  }
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nothing, STDOUT_FILENO);
    execvp(argv[1], argv + 1);
    std::perror(argv[1]);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child) {
    std::perror("measured-run");
    return 126;
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  std::printf("%.6f %.6f %lld\n", took.count(), inSeconds(usage.ru_utime) + inSeconds(usage.ru_stime),
              1024LL * usage.ru_maxrss);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
