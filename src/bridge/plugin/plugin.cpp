#include "bridge/plugin/plugin.h"

#include <new>

#include "bridge/pipeline/run_import.h"
#include "host/base/pemo.h"
#include "host/metamodel/store_model.h"

extern "C" __attribute__((visibility("default"))) OrsaDllInterface* getVornSilverrunRdm262ImportInterface() {
  static silrdm::VornSilverrunRdm262ImportDllInterface object;
  return &object;
}

namespace silrdm {

bool VornSilverrunRdm262ImportDllInterface::run(const VornString& identifier, VornFile& output,
                                                VornOptionList& options, VornLog& log) {
  try {
    VornStoreModel model;
    runImport(identifier, describeBuild(), options, model, log);
    saveStoreModel(output, model, log);
  } catch (const std::bad_alloc&) {
    // The import has released its memory by now, so there is enough to report this.
    PEMO::OUT_OF_MEMORY.throwException({options.getValue("File")});
  }
  return true;
}

}  // namespace silrdm
