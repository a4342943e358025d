#include "host/plugin/dll_interface.h"

#include "host/base/output_file.h"
#include "host/base/pemo.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"
#include "host/writers/formats.h"

OrsaDllInterface::~OrsaDllInterface() = default;

void VornBridgeDllInterface::getDataStoreList(VornDataStoreList& /*dataStores*/) {
}

void VornBridgeDllInterface::saveStoreModel(VornFile& output, VornStoreModel& model, VornLog& log) {
  log.progress("saving", 0, 0);
#ifndef NDEBUG
  if (const auto problems = verifyModel(model); !problems.empty()) {
    PEMO::INCONSISTENT_MODEL.throwException({problems.front().c_str()});
  }
#endif
  const VornModelFormat& format = getModelFormat(output);
  VornOutputFile file{std::string(output.getPath().view())};
  file.setListener([&log](std::size_t written) { log.progress("saving", written, 0); });
  format.write(model, output.getFormat(), file, log);
  file.commit();
  log.modelSaved(model);
}

void VornImportBridgeDllInterface::getStageList(std::vector<VornBridgeStage>& /*stages*/) {
}
