// Tasks in processes of their own: whatever one does, crashing and hanging included, the others go on.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <string>

namespace cli {

// How a task's process ended.
struct WorkerEnd {
  std::size_t task = 0;
  int signal = 0;          // what killed it; 0: it came to its end
  bool outOfTime = false;  // it was killed for taking too long
  bool stopped = false;    // it was killed because all were to stop
  double seconds = 0;
  std::string answer;  // what the task returned; only a part of it when it was killed
};

struct WorkerLimits {
  std::size_t atATime = 1;
  double seconds = std::numeric_limits<double>::infinity();  // for each task
};

// Does the tasks 0 to `tasks` - 1, in this order but several at a time, and tells of each as it ends;
// `goesOn` is called a few times a second: once it is false, what runs is ended and nothing else begins.
// `work` runs in the worker, a copy of this process made then; it must not throw. Whatever ends this process,
// which must have one thread, ends its workers. Throws std::system_error when no process can be made at all,
// or the files that one needs cannot be opened.
void runInWorkers(std::size_t tasks, const WorkerLimits& limits,
                  const std::function<std::string(std::size_t)>& work,
                  const std::function<void(const WorkerEnd&)>& ended, const std::function<bool()>& goesOn);

}  // namespace cli
