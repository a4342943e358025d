#include "bridge/import/import_state.h"

#include <utility>

#include "bridge/elements/registries.h"
#include "bridge/elements/reset_general_pointer.h"
#include "bridge/finishing/foreign_key_gaps.h"
#include "bridge/reader/field_reader.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

VornFile inputFile;
char recordBuffer[kRecordCapacity];
VornLog* importLog = nullptr;
bool isListening = false;
CountBySection recordsRead{};
CountBySection recordsDropped{};
VornStoreModel* storeModel = nullptr;
VornDesignPackage* designPackage = nullptr;
VornClassDiagram* mainDiagram = nullptr;
bool roleNameAtDestination = false;
bool hasCandidateKeys = false;
bool hasOtherKeys = false;
SILRDMSchema* currentSchema = nullptr;
const targetDatabaseInfo* detectedTargetSystem = nullptr;
VornDatabaseSchema* defaultSchema = nullptr;
VornStringHashSet defaultPlacedNames(15);

namespace {

// Has the registries in order, so that they can be walked when the elements they are ordered by are gone.
void sortRegistries() {
  for (VornRBTree* registry : std::initializer_list<VornRBTree*>{
           &entityRegistry, &attributeRegistry, &commonItemRegistry, &domainRegistry, &relationshipRegistry,
           &roleRegistry, &specializationRegistry, &combinationRegistry, &viewRegistry, &userRegistry}) {
    registry->sort();
  }
}

// Empties a registry of host objects. What no pass put into the model belongs to nobody and is destroyed.
template <class Registry>
void releaseObjects(Registry& registry) {
  for (auto* object : registry) {
    if (object->getOwner() == nullptr) {
      destroyWithElement(object);
    }
  }
  registry.empty();
}

// Empties a registry of elements, which owns them.
template <class Registry>
void releaseElements(Registry& registry) {
  for (const auto* element : registry) {
    delete element;
  }
  registry.empty();
}

}  // namespace

void releaseImportState() {
  sortRegistries();
  if (storeModel != nullptr) {
    VornResetGeneralPointer reset;
    storeModel->depthTraversal(reset, nullptr);
  }
  releaseObjects(entityRegistry);
  releaseObjects(attributeRegistry);
  releaseObjects(commonItemRegistry);
  releaseObjects(domainRegistry);
  releaseObjects(relationshipRegistry);
  releaseObjects(roleRegistry);
  releaseObjects(specializationRegistry);
  releaseObjects(combinationRegistry);
  releaseElements(combinationColumnRegistry);
  releaseObjects(viewRegistry);
  releaseObjects(userRegistry);
  delete std::exchange(currentSchema, nullptr);
  defaultPlacedNames.clear();
  releaseElements(dataTypeRegistry);
  storeModel = nullptr;
  designPackage = nullptr;
  mainDiagram = nullptr;
  defaultSchema = nullptr;
  detectedTargetSystem = nullptr;
  hasOtherKeys = false;
  hasCandidateKeys = false;
  inputFile.close();
  readingPlace = {};
  openText.reset();
  hasReportedLineFeed = false;
  subtypeLinks.clear();
  isListening = false;
  recordsRead = {};
  recordsDropped = {};
}

}  // namespace silrdm
