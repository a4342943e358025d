#include <memory>

#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "bridge/target_systems/target_systems.h"
#include "host/datatypes/data_stores.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

enum class Field { identifier = 2, systemName = 3, systemVersion = 4, last = systemVersion, width = 8 };

// False when the system is not known.
bool detectTargetSystem(const SILRDMTargetSystem& system) {
  detectedTargetSystem = findTargetSystem(system.systemName, system.systemVersion);
  if (detectedTargetSystem == nullptr) {
    tell(Irregularity::unknownTargetSystem, system, system.systemVersion,
         {system.systemName, system.systemVersion});
    importLog->targetSystemUnknown(system.systemName, system.systemVersion);
    return false;
  }
  KVB_SRRDM::SILRDM_I_TARGET_SYSTEM_DETECTED.log(*importLog, {detectedTargetSystem->systemName});
  storeModel->dataStoreVersionName = detectedTargetSystem->dataStoreVersionName;
  setDataStore(*storeModel, *detectedTargetSystem);
  return true;
}

// `chosen` is the record that tells the model's data store so far, or null.
void loadTargetSystem(const Record<Field>& record, std::unique_ptr<SILRDMTargetSystem>& chosen) {
  auto system = std::make_unique<SILRDMTargetSystem>(record.text(Field::identifier));
  system->systemName = record.text(Field::systemName);
  system->systemVersion = record.text(Field::systemVersion);
  if (currentSchema == nullptr || !currentSchema->targetSystemId.equals(system->identifier, true)) {
    tell(Irregularity::otherTargetSystem, *system, system->identifier);
  } else if (detectTargetSystem(*system)) {
    if (chosen) {
      tell(Irregularity::replacedTargetSystem, *chosen, chosen->identifier);
    }
    chosen = std::move(system);
  }
}

}  // namespace

void loadTargetSystems() {
  std::unique_ptr<SILRDMTargetSystem> chosen;
  forEachRecord<Field>([&](const Record<Field>& record) { loadTargetSystem(record, chosen); });
}

}  // namespace silrdm
