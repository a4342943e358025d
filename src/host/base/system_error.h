// What a system call that failed says.
#pragma once

#include <cerrno>
#include <system_error>

// The reason for which the last system call of this thread failed. Call it directly after that.
inline std::error_code lastSystemError() {
  return {errno, std::generic_category()};
}
