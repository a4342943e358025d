// stage-times: imports an export through the loaded plug-in and prints the seconds of each stage, and the
// megabytes of memory that the process uses after it, one stage per line.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "host/base/import_observer.h"
#include "host/base/log.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/writers/model_outputs.h"

namespace {

double megabytesInUse() {
  std::ifstream statistics("/proc/self/statm");
  std::size_t size = 0;
  std::size_t resident = 0;
  statistics >> size >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

class SilentLog final : public VornLog {
  void put(VornSeverity /*severity*/, const VornString& /*code*/, const VornString& /*text*/) override {}
};

class StageTimer final : public VornImportObserver {
 public:
  explicit StageTimer(VornImportBridgeDllInterface& bridge) { bridge.getStageList(stages_); }

  // Ends the stage that began when the last one ended.
  void endStage(const std::string& name) {
    const auto now = std::chrono::steady_clock::now();
    const std::chrono::duration<double> took = now - begin_;
    std::printf("%s\t%.6f\t%.1f\n", name.c_str(), took.count(), megabytesInUse());
    begin_ = std::chrono::steady_clock::now();
  }

  void stageDone(const char* list, int position) override {
    for (const VornBridgeStage& stage : stages_) {
      if (stage.list == list && stage.position == position) {
        endStage((stage.list + " " + VornString(position) + " " + stage.name).c_str());
      }
    }
  }
  void progress(const char* task, std::size_t done, std::size_t /*total*/) override {
    if (std::string(task) == "saving" && done == 0) {
      endStage("finish and release");
    }
  }

 private:
  std::vector<VornBridgeStage> stages_;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

int import(const char* exportPath, const char* outputPath) {
  const VornBridgeLibrary library(VORN_PLUGIN);
  VornOptionList options;
  library.getInterface().getOptionList(options);
  options.get("File")->setValue(exportPath);
  VornModelOutputs outputs({{outputPath}});
  SilentLog log;
  StageTimer timer(library.getInterface());
  log.setObserver(timer);
  library.getInterface().run("SilverrunRdm262Import", outputs.getFile(), options, log);
  timer.endStage("save and destroy the model");
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
  }
  return 1;
}
