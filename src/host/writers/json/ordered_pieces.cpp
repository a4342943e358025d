#include "host/writers/json/ordered_pieces.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "host/base/output_file.h"

namespace {

// More threads would wait for the file.
constexpr std::size_t kMostThreads = 4;

// Fits what a processor has close by.
constexpr std::size_t kBufferSize = std::size_t{512} * 1024;

}  // namespace

// Who writes which piece, and whose turn it is to come into the file.
class OrderedPieces {
 public:
  OrderedPieces(VornOutputFile& file, std::size_t count) : file_(file), count_(count) {}

  void write(const std::function<void(PieceOutput&)>& work) {
    {
      std::vector<std::jthread> helpers;
      const std::size_t threads =
          std::min({count_, kMostThreads, std::size_t{std::thread::hardware_concurrency()}});
      try {
        while (helpers.size() + 1 < threads) {
          helpers.emplace_back([&] { run(work); });
        }
      } catch (const std::system_error&) {
        // No more threads: those there are do it all.
      }
      run(work);
    }
    if (failure_) {
      std::rethrow_exception(failure_);
    }
  }

  std::optional<std::size_t> begin() {
    const std::lock_guard lock(mutex_);
    return begun_ < count_ ? std::optional(begun_++) : std::nullopt;
  }
  // Puts the bytes into the file when all pieces before this one are there.
  void put(std::size_t piece, const char* bytes, std::size_t count) {
    {
      std::unique_lock lock(mutex_);
      turned_.wait(lock, [&] { return failure_ || ended_ == piece; });
      if (failure_) {
        std::rethrow_exception(failure_);
      }
    }
    file_.writeStraight(bytes, count);
  }
  void end() {
    const std::lock_guard lock(mutex_);
    ++ended_;
    turned_.notify_all();
  }

 private:
  void run(const std::function<void(PieceOutput&)>& work) {
    try {
      PieceOutput output(*this);
      work(output);
    } catch (...) {
      const std::lock_guard lock(mutex_);
      failure_ = failure_ ? failure_ : std::current_exception();
      turned_.notify_all();
    }
  }

  VornOutputFile& file_;
  const std::size_t count_;
  std::mutex mutex_;
  std::condition_variable turned_;
  std::size_t begun_ = 0;
  std::size_t ended_ = 0;  // which is the piece whose turn it is
  std::exception_ptr failure_;
};

PieceOutput::PieceOutput(OrderedPieces& pieces) : VornOutput(kBufferSize), pieces_(pieces) {
}

std::optional<std::size_t> PieceOutput::next() {
  if (piece_) {
    flush();
    pieces_.end();
  }
  piece_ = pieces_.begin();
  return piece_;
}

void PieceOutput::take(const char* bytes, std::size_t count) {
  pieces_.put(*piece_, bytes, count);
}

void writeInPieces(VornOutputFile& file, std::size_t pieces, const std::function<void(PieceOutput&)>& work) {
  OrderedPieces(file, pieces).write(work);
}
