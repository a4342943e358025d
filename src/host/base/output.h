// VornOutput: where a writer puts its bytes. They are buffered until the buffer is full; where they go then
// is up to the class that derives from it.
#pragma once

#include <cstddef>
#include <memory>

class VornOutput {
 public:
  VornOutput(const VornOutput&) = delete;
  VornOutput& operator=(const VornOutput&) = delete;

  void write(const char* bytes, std::size_t count);
  void put(char byte) {
    *room(1) = byte;
    ++used_;
  }

  // For callers that write the bytes themselves: room for `count` bytes, and where their bytes end.
  char* room(std::size_t count) {
    if (count > capacity_ - used_) {
      makeRoom(count);
    }
    return buffer_.get() + used_;
  }
  void advanceTo(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.get()); }

  // Hands on what is buffered.
  void flush();

 protected:
  // The buffer has that many bytes and grows for larger requests.
  explicit VornOutput(std::size_t capacity);
  virtual ~VornOutput() = default;

 private:
  // Takes the bytes, or throws.
  virtual void take(const char* bytes, std::size_t count) = 0;
  void makeRoom(std::size_t count);

  std::size_t capacity_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
};
