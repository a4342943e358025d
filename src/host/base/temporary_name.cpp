#include "host/base/temporary_name.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdio>

#include "host/base/system_error.h"

namespace {

// The names there are, for a handler, which may do next to nothing. A file that finds no place here is left
// by a signal.
std::array<std::atomic<const char*>, 16> names{};

void replaceName(const char* old, const char* name) {
  for (auto& place : names) {
    const char* expected = old;
    if (place.compare_exchange_strong(expected, name)) {
      return;
    }
  }
}

}  // namespace

VornTemporaryName::~VornTemporaryName() {
  if (!name_.empty()) {
    ::unlink(name_.c_str());
    forget();
  }
}

void VornTemporaryName::set(std::string name) {
  name_ = std::move(name);
  replaceName(nullptr, name_.c_str());
}

std::error_code VornTemporaryName::renameTo(const std::string& target) {
  if (!name_.empty()) {
    if (std::rename(name_.c_str(), target.c_str()) != 0) {
      return lastSystemError();
    }
    forget();
  }
  return {};
}

void VornTemporaryName::forget() {
  replaceName(name_.c_str(), nullptr);
  name_.clear();
}

void VornTemporaryName::removeAll() noexcept {
  for (const auto& place : names) {
    if (const char* name = place) {
      ::unlink(name);
    }
  }
}
