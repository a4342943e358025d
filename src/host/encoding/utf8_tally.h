// Counts what bytes say for and against UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

class VornUtf8Tally {
 public:
  // Where counting may end early: reading a file as UTF-8 is right with the first valid character beyond
  // ASCII, and reading it otherwise with the first invalid sequence.
  enum class StopAt { firstValid, firstInvalid };

  explicit VornUtf8Tally(StopAt stop) : stop_(stop) {}

  // Takes the next bytes of a file; blocks may have any size.
  void look(std::string_view bytes);
  // To be called after the last block: a character that was begun is invalid.
  void finish();

  std::size_t getValid() const { return valid_; }      // characters of more than one byte
  std::size_t getInvalid() const { return invalid_; }  // sequences

 private:
  bool isDecided() const { return (stop_ == StopAt::firstValid ? valid_ : invalid_) > 0; }
  void take(std::uint8_t byte);
  void begin(std::uint8_t byte);

  StopAt stop_;
  int missing_ = 0;  // bytes of the character that was begun
  std::uint8_t least_ = 0x80;
  std::uint8_t most_ = 0xBF;  // of its next byte
  std::size_t valid_ = 0;
  std::size_t invalid_ = 0;
};
