#include "cli/worker_pool.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include "cli/process.h"
#include "host/base/system_error.h"

namespace cli {

namespace {

using Clock = std::chrono::steady_clock;

// One worker; it does not outlive this object.
class Worker {
 public:
  // Its time is over after `limit` seconds. `siblings` are those that run already. Throws std::system_error.
  Worker(std::size_t task, double limit, const std::function<std::string(std::size_t)>& work,
         const std::vector<std::unique_ptr<Worker>>& siblings)
      : limit_(limit) {
    end_.task = task;
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
      throw std::system_error(lastSystemError(), "cannot create a pipe");
    }
    const pid_t parent = ::getpid();
    process_ = ::fork();
    const std::error_code error = lastSystemError();
    if (process_ == 0) {
      endOn(SIGTERM);
      endWithoutDelay();
      ::prctl(PR_SET_PDEATHSIG, SIGTERM);  // whatever ends the parent ends its workers
      if (::getppid() != parent) {
        ::_exit(1);
      }
      // What the parent reads from is the parent's: a worker has as many descriptors as a lone import.
      ::close(ends[0]);
      for (const auto& sibling : siblings) {
        ::close(sibling->descriptor_);
      }
      answerAndExit(ends[1], task, work);
    }
    descriptor_ = ends[0];
    ::close(ends[1]);
    if (process_ < 0) {
      ::close(descriptor_);
      throw std::system_error(error, "cannot create a process");
    }
  }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() {
    if (process_ > 0) {
      ::kill(process_, SIGKILL);
      wait();
    }
    ::close(descriptor_);
  }

  int getDescriptor() const { return descriptor_; }
  double getSecondsLeft() const { return limit_ - getSeconds(); }
  // When its time is over: at first in such a way that it takes its temporary files along, for which it has a
  // second.
  void killForTime() {
    ::kill(process_, std::exchange(end_.outOfTime, true) ? SIGKILL : SIGTERM);
    limit_ = getSeconds() + 1;
  }

  void stop() {
    if (!end_.outOfTime) {
      killForTime();
      end_.stopped = true;
    }
  }

  // Takes what the worker has written; null as long as it may write more.
  const WorkerEnd* read() {
    char bytes[4096];
    const ssize_t count = ::read(descriptor_, bytes, sizeof bytes);
    if (count > 0) {
      end_.answer.append(bytes, static_cast<std::size_t>(count));
    }
    if (count != 0) {
      return nullptr;
    }
    const int status = wait();
    end_.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    end_.stopped = end_.stopped && end_.signal != 0;
    end_.outOfTime = end_.outOfTime && end_.signal != 0 && !end_.stopped;
    end_.seconds = getSeconds();
    return &end_;
  }

 private:
  // noexcept: an exception must not get into this copy of the parent's work.
  [[noreturn]] static void answerAndExit(int descriptor, std::size_t task,
                                         const std::function<std::string(std::size_t)>& work) noexcept {
    const std::string answer = work(task);
    for (std::size_t done = 0; done < answer.size();) {
      const ssize_t count = ::write(descriptor, answer.data() + done, answer.size() - done);
      if (count < 0 && errno != EINTR) {
        ::_exit(1);
      }
      done += static_cast<std::size_t>(std::max(count, ssize_t{0}));
    }
    ::_exit(0);
  }

  double getSeconds() const { return std::chrono::duration<double>(Clock::now() - start_).count(); }

  int wait() {
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = 0;
    return status;
  }

  pid_t process_ = 0;
  int descriptor_ = -1;
  Clock::time_point start_ = Clock::now();
  double limit_;  // seconds from the start
  WorkerEnd end_;
};

using Workers = std::vector<std::unique_ptr<Worker>>;

// Waits until a worker writes or ends or its time is over.
void waitForNews(Workers& running, const std::function<void(const WorkerEnd&)>& ended) {
  std::vector<pollfd> watched;
  double left = 0.2;
  for (const auto& worker : running) {
    watched.push_back({worker->getDescriptor(), POLLIN, 0});
    left = std::min(left, worker->getSecondsLeft());
  }
  ::poll(watched.data(), watched.size(), static_cast<int>(std::ceil(std::max(left, 0.0) * 1000)));
  for (std::size_t i = running.size(); i-- > 0;) {
    Worker& worker = *running[i];
    if (watched[i].revents == 0) {
      if (worker.getSecondsLeft() <= 0) {
        worker.killForTime();
      }
    } else if (const WorkerEnd* end = worker.read()) {
      ended(*end);
      running.erase(running.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }
}

// Tries whether as many more files can be opened as a worker needs, and returns why not, or no
// error: a task would take the shortage for a fault of its files.
std::error_code findShortageOfDescriptors() {
  constexpr std::size_t kNeeded = 8;
  std::vector<int> spare;
  std::error_code error;
  while (spare.size() < kNeeded && !error) {
    const int descriptor = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0) {
      error = lastSystemError();
    } else {
      spare.push_back(descriptor);
    }
  }
  std::ranges::for_each(spare, ::close);
  return error;
}

}  // namespace

void runInWorkers(std::size_t tasks, const WorkerLimits& limits,
                  const std::function<std::string(std::size_t)>& work,
                  const std::function<void(const WorkerEnd&)>& ended, const std::function<bool()>& goesOn) {
  if (const std::error_code error = findShortageOfDescriptors()) {
    throw std::system_error(error, "a batch needs more open files (ulimit -n)");
  }
  Workers running;
  for (std::size_t next = 0; next < tasks || !running.empty();) {
    try {
      while (next < tasks && running.size() < limits.atATime &&
             (running.empty() || !findShortageOfDescriptors())) {
        running.push_back(std::make_unique<Worker>(next, limits.seconds, work, running));
        ++next;
      }
    } catch (const std::system_error&) {
      // As many as the system allows then.
      if (running.empty()) {
        throw;
      }
    }
    waitForNews(running, ended);
    if (!goesOn()) {
      next = tasks;
      std::ranges::for_each(running, [](const auto& worker) { worker->stop(); });
    }
  }
}

}  // namespace cli
