#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/datatypes/data_stores.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

constexpr auto kLayout =
    recordLayout(8,  //
                 field(2, "identifier"), field(3, "systemName", &SILRDMTargetSystem::systemName),
                 field(4, "systemVersion", &SILRDMTargetSystem::systemVersion));

// Returns false if the system is unknown.
bool detectTargetSystem(Import& import, const SILRDMTargetSystem& system) {
  const targetDatabaseInfo* found = findTargetSystem(system.systemName, system.systemVersion);
  import.detectedTargetSystem = found;
  if (found == nullptr) {
    import.report(Irregularity::unknownTargetSystem, system, system.systemVersion,
                  VornMessageArguments{system.systemName, system.systemVersion});
    import.reporter.getObserver().targetSystemUnknown(system.systemName, system.systemVersion);
    return false;
  }
  KVB_SRRDM::SILRDM_I_TARGET_SYSTEM_DETECTED.log(import.log, {found->systemName});
  import.storeModel.dataStoreVersionName = found->dataStoreVersionName;
  setDataStore(import.storeModel, *found);
  return true;
}

// `chosen` is the record that determines the model's data store so far, or null.
void loadTargetSystem(Import& import, const Record<kLayout>& record,
                      std::unique_ptr<SILRDMTargetSystem>& chosen) {
  auto system = makeElement<SILRDMTargetSystem>(record);
  const SILRDMSchema* schema = import.currentSchema.get();
  if (schema == nullptr || !schema->targetSystemId.equals(system->identifier, true)) {
    import.report(Irregularity::otherTargetSystem, *system, system->identifier);
  } else if (detectTargetSystem(import, *system)) {
    if (chosen) {
      import.report(Irregularity::replacedTargetSystem, *chosen, chosen->identifier);
    }
    chosen = std::move(system);
  }
}

}  // namespace

const RecordFields kTargetSystemFields = kLayout.getFields();

void loadTargetSystems(Import& import) {
  std::unique_ptr<SILRDMTargetSystem> chosen;
  forEachRecord<kLayout>(import.reader,
                         [&](const Record<kLayout>& record) { loadTargetSystem(import, record, chosen); });
}

}  // namespace silrdm
