// Imports any bytes whatever: the model that comes out must hang together and be saved, or the import must
// fail cleanly, and the next import must know nothing of it.
//
//   build/fuzz/bin/import-fuzzer -max_total_time=60 CORPUS examples
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bridge/plugin.h"
#include "host/metamodel/verify.h"
#include "host/std/exception.h"

namespace {

class VerifyingLog final : public VornLog {
 public:
  void modelSaved(VornStoreModel& model) override {
    for (const std::string& problem : verifyModel(model)) {
      std::fprintf(stderr, "%s\n", problem.c_str());
      std::abort();
    }
  }

 private:
  void put(VornSeverity /*severity*/, const VornString& /*code*/, const VornString& /*text*/) override {}
};

void import(const std::string& path) {
  silrdm::VornSilverrunRdm262ImportDllInterface bridge;
  VornOptionList options;
  bridge.getOptionList(options);
  options.get("File")->setValue(VornString(path));
  VornFile output("/dev/null");
  output.setFormat("json");
  VerifyingLog log;
  try {
    bridge.run("SilverrunRdm262Import", output, options, log);
  } catch (const VornException&) {
    return;  // no export
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const int file = ::memfd_create("export", MFD_CLOEXEC);
  if (::ftruncate(file, 0) != 0 || ::pwrite(file, data, size, 0) != static_cast<ssize_t>(size)) {
    std::abort();
  }
  import("/proc/self/fd/" + std::to_string(file));
  return 0;
}
