#include "bridge/messages.h"
#include "datatypes/target_systems.h"
#include "host/datatypelib/data_stores.h"
#include "host/metamodel/store_model.h"
#include "loaders/loaders.h"
#include "reader/record.h"

namespace silrdm {

namespace {

enum class Field { identifier = 2, systemName = 3, systemVersion = 4, last = systemVersion };

void detectTargetSystem(const SILRDMTargetSystem& system) {
  detectedTargetSystem = findTargetSystem(system.systemName, system.systemVersion);
  if (detectedTargetSystem == nullptr) {
    KVB_SRRDM::SILRDM_I_UNKNOWN_TARGET_SYSTEM.log(*importLog, {system.systemName, system.systemVersion});
    return;
  }
  KVB_SRRDM::SILRDM_I_TARGET_SYSTEM_DETECTED.log(*importLog, {detectedTargetSystem->systemName});
  storeModel->dataStoreVersionName = detectedTargetSystem->dataStoreVersionName;
  setDataStore(*storeModel, *detectedTargetSystem);
}

void loadTargetSystem(const Record<Field>& record) {
  SILRDMTargetSystem system(record.text(Field::identifier));
  system.systemName = record.text(Field::systemName);
  system.systemVersion = record.text(Field::systemVersion);
  if (currentSchema != nullptr && currentSchema->targetSystemId.equals(system.identifier, true)) {
    detectTargetSystem(system);
  }
}

}  // namespace

void loadTargetSystems() {
  forEachRecord<Field>(loadTargetSystem);
}

}  // namespace silrdm
