// VornTemporaryName: the name of a temporary file, which goes with this object.
#pragma once

#include <string>

class VornTemporaryName {
 public:
  VornTemporaryName() = default;
  VornTemporaryName(const VornTemporaryName&) = delete;
  VornTemporaryName& operator=(const VornTemporaryName&) = delete;
  // Removes the file, if a name was set.
  ~VornTemporaryName();

  // The name of a file that is there; once an object.
  void set(std::string name);

  // Gives the file, if a name was set, the name under which it stays. False, with the reason in errno, when
  // that cannot be done.
  bool renameTo(const std::string& target);

  // Removes the files of all objects. To be called by a signal's handler before the process ends.
  static void removeAll() noexcept;

 private:
  void forget();

  std::string name_;
};
