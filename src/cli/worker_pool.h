// Runs tasks in separate processes, so that one that crashes or hangs does not affect the others.
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

// Runs the tasks 0 to `tasks` - 1, in this order but several at a time, and reports each as it ends. Calls
// `goesOn` a few times per second; when it returns false, running tasks are stopped and no others start.
// `work` runs in the worker, a fork of this process, and must not throw. This process must have one thread;
// when it ends, its workers end. Throws std::system_error if no process can be created, or the files that a
// worker needs cannot be opened.
void runInWorkers(std::size_t tasks, const WorkerLimits& limits,
                  const std::function<std::string(std::size_t)>& work,
                  const std::function<void(const WorkerEnd&)>& ended, const std::function<bool()>& goesOn);

}  // namespace cli
