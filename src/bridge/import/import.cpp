#include "bridge/import/import.h"

#include "bridge/elements/reset_general_pointer.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

RelationshipRecord::RelationshipRecord(const VornAssociation& association)
    : place(elementOf(association)->place),
      identifier(elementOf(association)->identifier),
      name(association.getName()) {
}

Import::Import(ImportOptions importOptions, VornLog& importLog, VornStoreModel& importedModel,
               Reporter::SectionName sectionName)
    : options(std::move(importOptions)),
      log(importLog),
      storeModel(importedModel),
      reporter(importLog, sectionName) {
}

Import::~Import() {
  resetGeneralPointers();
}

void Import::resetGeneralPointers() {
  VornResetGeneralPointer reset;
  storeModel.depthTraversal(reset, nullptr);
}

}  // namespace silrdm
