#include "cli/standard_output.h"

#include <unistd.h>

#include <cerrno>
#include <iostream>

#include "host/base/system_error.h"

namespace cli {

StandardOutput::StandardOutput() : replaced_(std::cout.rdbuf(this)) {
  setp(buffer_.begin(), buffer_.end());
}

StandardOutput::~StandardOutput() {
  std::cout.rdbuf(replaced_);
}

std::error_code StandardOutput::finish() {
  sync();
  return error_;
}

StandardOutput::int_type StandardOutput::overflow(int_type byte) {
  if (sync() != 0) {
    return traits_type::eof();
  }
  if (!traits_type::eq_int_type(byte, traits_type::eof())) {
    sputc(traits_type::to_char_type(byte));
  }
  return traits_type::not_eof(byte);
}

int StandardOutput::sync() {
  for (const char* next = pbase(); next != pptr() && !error_;) {
    const ssize_t count = ::write(STDOUT_FILENO, next, static_cast<std::size_t>(pptr() - next));
    if (count >= 0) {
      next += count;
    } else if (errno != EINTR) {
      error_ = lastSystemError();
    }
  }
  setp(buffer_.begin(), buffer_.end());
  return error_ ? -1 : 0;
}

}  // namespace cli
