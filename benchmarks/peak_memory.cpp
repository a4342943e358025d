#include "peak_memory.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

namespace {

std::size_t peakOfThisProcess() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

// Never returns into the caller: the process is a copy.
[[noreturn]] void workAndTell(const std::function<void()>& work, int descriptor) {
  bool told = false;
  try {
    const std::size_t before = peakOfThisProcess();
    work();
    const std::size_t growth = peakOfThisProcess() - before;
    told = write(descriptor, &growth, sizeof growth) == sizeof growth;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "%s\n", problem.what());
  }
  _exit(told ? 0 : 1);
}

}  // namespace

std::size_t measurePeakMemory(const std::function<void()>& work) {
  int ends[2];
  if (pipe(ends) != 0) {
    throw std::runtime_error("cannot create a pipe");
  }
  const pid_t child = fork();
  if (child == 0) {
    workAndTell(work, ends[1]);
  }
  close(ends[1]);
  std::size_t growth = 0;
  const bool told = child > 0 && read(ends[0], &growth, sizeof growth) == sizeof growth;
  close(ends[0]);
  if (child > 0) {
    waitpid(child, nullptr, 0);
  }
  if (!told) {
    throw std::runtime_error("the work whose memory was to be measured has failed");
  }
  return growth;
}
