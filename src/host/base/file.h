// VornFile: a file by its path, read through a buffer. As the output of a bridge it carries the destination
// of the model.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <system_error>

#include "host/base/text.h"

class VornModelDestination;

class VornFile {
 public:
  // This path means standard input, read from its current position.
  static constexpr std::string_view kStandardInput = "-";

  // Bits of an open mode. The platform has no text mode: with and without `binary` the bytes are the same.
  static constexpr int kRead = 0x01;
  static constexpr int kBinary = 0x20;

  VornFile() = default;
  explicit VornFile(VornString path) : path_(std::move(path)) {}
  VornFile(const VornFile&) = delete;
  VornFile& operator=(const VornFile&) = delete;
  ~VornFile();

  // Sets the path. What is open stays open until `close` or the next `open`.
  VornFile& operator=(const VornString& path);
  const VornString& getPath() const { return path_; }
  // The path as messages show it: "standard input" for `kStandardInput`.
  VornString getDisplayName() const;

  // Where a model that is saved into this file goes; null unless set. It must outlive the file.
  VornModelDestination* getDestination() const { return destination_; }
  void setDestination(VornModelDestination& destination) { destination_ = &destination; }

  // Opens the file at its first byte. Returns false, with the reason in `getError`, if that fails. A
  // directory cannot be opened.
  bool open(int mode);

  // Reads up to `count` bytes and returns how many there were. Fewer than asked for, because the file ends
  // there or cannot be read on, sets the end-of-file state.
  std::size_t read(char* bytes, std::size_t count) {
    if (count == 1 && next_ != end_) {
      *bytes = *next_++;
      return 1;
    }
    return readThroughBuffer(bytes, count);
  }
  bool isEndOfFile() const { return endOfFile_; }
  // Why the file could not be opened or read on; no error while all has gone well.
  std::error_code getError() const { return error_; }

  // For loops over many bytes: what comes next, as far as it was read ahead; empty, with the end-of-file
  // state set, when there is nothing. Stands until the next call that reads. `skip` passes over the first
  // `count` of its bytes.
  std::string_view peek() {
    if (next_ == end_) {
      fillBuffer();
    }
    return {next_, static_cast<std::size_t>(end_ - next_)};
  }
  void skip(std::size_t count) { next_ += count; }

  // The number of bytes read since `open`.
  std::size_t getPosition() const { return behindBuffer_ - static_cast<std::size_t>(end_ - next_); }

  // The size in bytes of what is open; 0 where that cannot be known, as of a pipe.
  std::size_t getSize() const;

  // Closes the file; harmless when it is closed. Returns whether it was open.
  bool close();

 private:
  std::size_t readThroughBuffer(char* bytes, std::size_t count);
  bool fillBuffer();  // with what follows; sets the end-of-file state when there is nothing

  VornString path_;
  VornModelDestination* destination_ = nullptr;
  int descriptor_ = -1;
  bool endOfFile_ = false;
  std::error_code error_;
  std::unique_ptr<char[]> buffer_;
  const char* next_ = nullptr;
  const char* end_ = nullptr;
  std::size_t behindBuffer_ = 0;  // offset in the file of the byte that follows the buffer
};
