// Imports in several threads of one process: each gives what it gives alone.
#include <gtest/gtest.h>

#include <latch>
#include <sstream>
#include <thread>
#include <vector>

#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/writers/model_outputs.h"
#include "tests/support.h"

namespace {

// The model and the messages of one import.
struct Outcome {
  std::string model;
  std::string messages;
  bool operator==(const Outcome&) const = default;
};

Outcome importExample(VornImportBridgeDllInterface& bridge, const std::string& name) {
  const TempFolder folder;
  std::ostringstream messages;
  VornStreamLog log(messages);
  log.setLevel(VornSeverity::debug);
  VornOptionList options;
  bridge.getOptionList(options);
  options.get("File")->setValue((std::string(VORN_EXAMPLES) + "/" + name).c_str());
  VornModelOutputs outputs({{folder.path("model.json")}});
  bridge.run("test", outputs.getFile(), options, log);
  return {readFile(folder.path("model.json")), messages.str()};
}

TEST(Imports, GiveInSeveralThreadsWhatTheyGiveAlone) {
  const VornBridgeLibrary library(VORN_PLUGIN);
  const std::vector<std::string> names = {"bookshop.txt", "harbour.txt", "museum-keys.txt", "bookshop.txt"};
  std::vector<Outcome> together(names.size());
  std::latch start(static_cast<std::ptrdiff_t>(names.size()));
  std::vector<std::jthread> threads;
  for (std::size_t i = 0; i < names.size(); ++i) {
    threads.emplace_back([&, i] {
      start.arrive_and_wait();
      for (int round = 0; round < 3; ++round) {
        together[i] = importExample(library.getInterface(), names[i]);
      }
    });
  }
  threads.clear();  // waits for them
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_GT(together[i].model.size(), 1000U);
    EXPECT_EQ(together[i], importExample(library.getInterface(), names[i])) << names[i];
  }
}

}  // namespace
