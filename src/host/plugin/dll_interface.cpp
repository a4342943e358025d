#include "host/plugin/dll_interface.h"

#include "host/base/pemo.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"
#include "host/plugin/model_destination.h"

OrsaDllInterface::~OrsaDllInterface() = default;

void VornBridgeDllInterface::getDataStoreList(VornDataStoreList& /*dataStores*/) {
}

void VornBridgeDllInterface::saveStoreModel(VornFile& output, VornStoreModel& model, VornLog& log) {
#ifndef NDEBUG
  if (const auto problems = verifyModel(model); !problems.empty()) {
    PEMO::INCONSISTENT_MODEL.throwException({problems.front().c_str()});
  }
#endif
  if (output.getDestination() == nullptr) {
    PEMO::CANNOT_WRITE_FILE.throwException({output.getPath(), "it has no destination"});
  }
  output.getDestination()->save(model, log);
}

void VornImportBridgeDllInterface::getStageList(std::vector<VornBridgeStage>& /*stages*/) {
}
