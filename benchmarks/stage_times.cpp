// stage-times: imports an export through the loaded plug-in and tells the seconds of each stage, and the
// megabytes of memory that the process has in use behind it, one stage a line.
//
// The stages are told apart by what the plug-in tells its log: behind each section and each pass it is at
// debug level, and saving shows its progress.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>

#include "host/base/exception.h"
#include "host/base/log.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"

namespace {

double megabytesInUse() {
  std::ifstream statistics("/proc/self/statm");
  std::size_t size = 0;
  std::size_t resident = 0;
  statistics >> size >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

class StageLog final : public VornLog {
 public:
  StageLog() { setLevel(VornSeverity::debug); }

  // Ends the stage that began with the one before.
  void endStage(const std::string& name) {
    const auto now = std::chrono::steady_clock::now();
    const std::chrono::duration<double> took = now - begin_;
    std::printf("%s\t%.6f\t%.1f\n", name.c_str(), took.count(), megabytesInUse());
    begin_ = std::chrono::steady_clock::now();
  }

  bool listensToIrregularities() const override { return false; }
  void modelSaved(VornStoreModel& /*model*/) override { endStage("save"); }
  void progress(const char* what, std::size_t done, std::size_t /*total*/) override {
    if (std::string(what) == "saving" && done == 0) {
      endStage("finish and release");
    }
  }

 private:
  void put(VornSeverity /*severity*/, const VornString& /*code*/, const VornString& text) override {
    const std::string words(text.view());
    if (const std::size_t section = words.find(", section "); words.starts_with("arrived at byte")) {
      endStage("read" + words.substr(section + 1, words.find(", record") - section - 1));
    } else if (words.starts_with("done: ")) {
      endStage(words.substr(words.find(' ') + 1));
    }
  }

  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

int import(const char* exportPath, const char* outputPath) {
  const VornBridgeLibrary library(VORN_PLUGIN);
  VornOptionList options;
  library.getInterface().getOptionList(options);
  options.get("File")->setValue(exportPath);
  VornFile output{VornString(outputPath)};
  StageLog log;
  library.getInterface().run("SilverrunRdm262Import", output, options, log);
  log.endStage("destroy the model");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: stage-times EXPORT OUTPUT\n";
    return 2;
  }
  try {
    return import(argv[1], argv[2]);
  } catch (const std::exception& problem) {
    std::cerr << "stage-times: " << problem.what() << '\n';
  } catch (const VornException& problem) {
    std::cerr << "stage-times: " << problem.getCode().c_str() << ' ' << problem.getText().c_str() << '\n';
  }
  return 1;
}
