// What several tests need: bytes, files, a folder of their own, a log, the code of what was thrown.
#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "host/base/exception.h"
#include "host/base/log.h"

inline std::string makeBytes(std::size_t count) {
  std::string bytes(count, '\0');
  std::generate(bytes.begin(), bytes.end(), std::mt19937(1));
  return bytes;
}

// Empty when there is no such file.
inline std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class TempFolder {
 public:
  TempFolder() { EXPECT_NE(::mkdtemp(path_.data()), nullptr); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() { std::filesystem::remove_all(path_); }

  std::string path(const std::string& name = "") const { return path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
    return path(name);
  }
  std::ptrdiff_t count() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

 private:
  std::string path_ = testing::TempDir() + "vorn-XXXXXX";
};

class CountingLog final : public VornLog {
  void put(VornSeverity /*severity*/, const VornString& /*code*/, const VornString& /*text*/) override {}
};

// "code text" of the VornException that `action` throws; empty when it throws none.
template <class Action>
std::string thrownBy(Action action) {
  try {
    action();
  } catch (const VornException& problem) {
    return (problem.getCode() + " " + problem.getText()).c_str();
  }
  return "";
}
