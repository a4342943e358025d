// VornTemporaryName: the name of a temporary file, which goes with this object.
#pragma once

#include <string>
#include <system_error>

class VornTemporaryName {
 public:
  VornTemporaryName() = default;
  VornTemporaryName(const VornTemporaryName&) = delete;
  VornTemporaryName& operator=(const VornTemporaryName&) = delete;
  // Removes the file, if a name was set.
  ~VornTemporaryName();

  // Takes over an existing file. Call at most once.
  void set(std::string name);

  // Renames the file to its final name, if a name was set.
  std::error_code renameTo(const std::string& target);

  // Removes the files of all objects. To be called by a signal's handler before the process ends.
  static void removeAll() noexcept;

 private:
  void forget();

  std::string name_;
};
