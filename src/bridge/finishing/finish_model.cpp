#include "bridge/finishing/finish_model.h"

#include <optional>

#include "bridge/elements/registries.h"
#include "bridge/elements/reset_general_pointer.h"
#include "bridge/finishing/foreign_key_gaps.h"
#include "bridge/import/import_state.h"
#include "bridge/messages/messages.h"
#include "bridge/plugin/plugin.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/plugin/tavik.h"
#include "host/services/aggregation.h"
#include "host/services/child_tables.h"
#include "host/services/key_propagation.h"
#include "host/services/metadata_origin.h"
#include "host/services/transcoder.h"
#include "host/services/types.h"
#include "host/services/view_sources.h"

namespace silrdm {

namespace {

void updatePrimaryKeys() {
  for (VornClass* table : entityRegistry) {
    updatePrimaryKeyOnClass(*table);
  }
}

// Every key has columns here: dropEmptyKeys has seen to it.
void generateForeignKeys() {
  VornChildTables children;
  for (VornClass* table : entityRegistry) {
    if (table->primaryCandidateKey != nullptr) {
      createForeignKeyOnAssociation(*table, *table->primaryCandidateKey, children);
    }
  }
}

void setAggregationProperties() {
  for (VornAssociation* association : relationshipRegistry) {
    setAggregationProperty(*association);
  }
}

void addMetadataOrigin(const VornString& identifier) {
  constexpr std::int32_t kOriginCode = 276;
  const VornString& buildVersion = getVornSilverrunRdm262ImportInterface()->getBuildVersion();
  auto origin = generateMetadataOrigin(TAVIK::BRIDGE_SPEC_SILVERRUNRDM262_IMPORT, identifier, buildVersion);
  origin->originCode = kOriginCode;
  origin->formatName = "TXT";
  origin->sourcePath = inputFile.getPath();
  storeModel->addMetadataOrigin(origin.get());
  origin.release();
}

}  // namespace

// The general pointers are reset first, because what the host makes now has none.
void generateKeys() {
  if (hasOtherKeys || !hasCandidateKeys) {
    return;
  }
  KVB_SRRDM::SILRDM_I_GENERATE_KEYS.log(*importLog);
  std::optional<ForeignKeyGaps> gaps;
  if (isListening) {
    gaps.emplace();
  }
  VornResetGeneralPointer reset;
  storeModel->depthTraversal(reset, nullptr);
  updatePrimaryKeys();
  generateForeignKeys();
  if (gaps) {
    gaps->report();
  }
}

void finishModel(const VornString& identifier, const VornString& encoding) {
  setAggregationProperties();
  factorizeTypes(*storeModel);
  processSqlViewAssociations(*storeModel, *importLog);
  addMetadataOrigin(identifier);
  if (!encoding.equals("unknown", true)) {
    VornTranscoder::transcodeModel(*importLog, *storeModel, encoding);
  }
}

}  // namespace silrdm
