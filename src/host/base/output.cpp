#include "host/base/output.h"

#include <algorithm>
#include <utility>

VornOutput::VornOutput(std::size_t capacity)
    : capacity_(capacity), buffer_(std::make_unique_for_overwrite<char[]>(capacity)) {
}

void VornOutput::write(const char* bytes, std::size_t count) {
  std::copy_n(bytes, count, room(count));  // which takes nothing from nowhere
  used_ += count;
}

void VornOutput::makeRoom(std::size_t count) {
  flush();
  if (count > capacity_) {
    buffer_ = std::make_unique_for_overwrite<char[]>(count);
    capacity_ = count;
  }
}

void VornOutput::flush() {
  take(buffer_.get(), std::exchange(used_, 0));
}
