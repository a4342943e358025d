// What several tests need: a folder of their own, a log that keeps its messages, the code of what was thrown.
#pragma once

#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "host/std/exception.h"
#include "host/std/log.h"

inline void PrintTo(const VornString& text, std::ostream* out) {
  *out << testing::PrintToString(text.view());
}

inline std::string readBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Different at every place, so that a byte lost or doubled shows.
inline std::string makeBytes(std::size_t count) {
  std::string bytes(count, '\0');
  for (std::size_t i = 0; i < count; ++i) {
    bytes[i] = static_cast<char>((i * 7 + i / 251 * 13) & 0xFF);
  }
  return bytes;
}

// A new folder that everybody may look into.
class TempFolder {
 public:
  TempFolder() : path_(testing::TempDir() + "vorn-XXXXXX") {
    EXPECT_NE(::mkdtemp(path_.data()), nullptr);
    ::chmod(path_.c_str(), 0755);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() { std::filesystem::remove_all(path_); }

  std::string path(const std::string& name = "") const { return path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
    return path(name);
  }
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    return found;
  }

 private:
  std::string path_;
};

// For root no permission is missing: while this is there, the process is not root.
class OrdinaryUser {
 public:
  OrdinaryUser() : wasRoot_(::geteuid() == 0) { EXPECT_TRUE(!wasRoot_ || ::seteuid(65534) == 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() {
    EXPECT_TRUE(!wasRoot_ || ::seteuid(0) == 0);
    ::prctl(PR_SET_DUMPABLE, 1);  // a change of user ends it, and the leak checker needs it
  }

 private:
  bool wasRoot_;
};

class CollectingLog final : public VornLog {
 public:
  std::vector<std::string> messages;  // "code text"

 private:
  void put(VornSeverity /*severity*/, const VornString& code, const VornString& text) override {
    messages.push_back(std::string(code.view()) + " " + std::string(text.view()));
  }
};

// "code text" of the VornException that `action` throws; empty when it throws none.
template <class Action>
std::string thrownBy(Action action) {
  try {
    action();
  } catch (const VornException& problem) {
    return std::string(problem.getCode().view()) + " " + std::string(problem.getText().view());
  }
  return "";
}
