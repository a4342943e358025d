// VornFile: a file by its path, read byte by byte through a buffer; also names the file a model is saved
// into.
#pragma once

#include <cstddef>
#include <memory>

#include "host/std/text.h"

class VornFile {
 public:
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

  // The name of the format to save in ("json"); while it is empty, the path's extension tells it.
  const VornString& getFormat() const { return format_; }
  void setFormat(VornString format) { format_ = std::move(format); }

  // Opens the file at its first byte. False, with the reason in errno, when that cannot be done; a directory
  // cannot be opened.
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

  // The number of bytes read since `open`.
  std::size_t getPosition() const { return behindBuffer_ - static_cast<std::size_t>(end_ - next_); }

  // Closes the file; harmless when it is closed. Returns whether it was open.
  bool close();

 private:
  std::size_t readThroughBuffer(char* bytes, std::size_t count);
  bool fillBuffer();

  VornString path_;
  VornString format_;
  int descriptor_ = -1;
  bool endOfFile_ = false;
  std::unique_ptr<char[]> buffer_;
  const char* next_ = nullptr;
  const char* end_ = nullptr;
  std::size_t behindBuffer_ = 0;  // offset in the file of the byte that follows the buffer
};
