#include "bridge/finishing/finish_model.h"

#include <optional>

#include "bridge/finishing/foreign_key_gaps.h"
#include "bridge/messages/messages.h"
#include "bridge/messages/tavik.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"
#include "host/services/aggregation.h"
#include "host/services/child_tables.h"
#include "host/services/key_propagation.h"
#include "host/services/metadata_origin.h"
#include "host/services/transcoder.h"
#include "host/services/types.h"
#include "host/services/view_sources.h"

namespace silrdm {

namespace {

void updatePrimaryKeys(Import& import) {
  for (VornClass* table : import.entityRegistry) {
    updatePrimaryKeyOnClass(*table);
  }
}

// Every key has columns: dropEmptyKeys dropped the others.
void generateForeignKeys(Import& import) {
  VornChildTables children;
  for (VornClass* table : import.entityRegistry) {
    if (table->primaryCandidateKey != nullptr) {
      createForeignKeyOnAssociation(*table, *table->primaryCandidateKey, children);
    }
  }
}

void setAggregationProperties(Import& import) {
  for (VornAssociation* association : import.relationshipRegistry) {
    setAggregationProperty(*association);
  }
}

void addMetadataOrigin(Import& import, const VornString& buildVersion) {
  constexpr std::int32_t kOriginCode = 276;
  auto origin = generateMetadataOrigin(TAVIK::BRIDGE_SPEC_SILVERRUNRDM262_IMPORT, import.options.identifier,
                                       buildVersion);
  origin->originCode = kOriginCode;
  origin->formatName = "TXT";
  origin->sourcePath = import.reader.getFile().getPath();
  import.storeModel.addMetadataOrigin(std::move(origin));
}

// Counts the records that objects of a model were made from.
class RecordCounter final : public VornTraversalOperation {
 public:
  void process(VornObject& object, void* /*user*/) override {
    if (const SILRDMElement* element = elementOf(object)) {
      ++counts[static_cast<std::size_t>(element->place.section)];
    }
  }

  CountBySection counts{};
};

}  // namespace

// Data types, the schema and the target system count as kept, although no object of the model is made from
// them.
CountBySection countKeptRecords(Import& import) {
  RecordCounter counter;
  import.storeModel.depthTraversal(counter, nullptr);
  counter.counts[24] = import.dataTypeRegistry.getCount();
  counter.counts[53] = static_cast<std::size_t>(import.currentSchema != nullptr);
  counter.counts[64] = static_cast<std::size_t>(!import.storeModel.dataStoreVersionName.empty());
  return counter.counts;
}

// The general pointers are reset first because generated objects have none.
void generateKeys(Import& import) {
  if (import.hasOtherKeys || !import.hasCandidateKeys) {
    return;
  }
  KVB_SRRDM::SILRDM_I_GENERATE_KEYS.log(import.log);
  std::optional<ForeignKeyGaps> gaps;
  if (import.reporter.reportsIrregularities()) {
    gaps.emplace(import);
  }
  import.resetGeneralPointers();
  updatePrimaryKeys(import);
  generateForeignKeys(import);
  if (gaps) {
    gaps->report();
  }
}

void finishModel(Import& import, const VornString& buildVersion) {
  setAggregationProperties(import);
  factorizeTypes(import.storeModel);
  processSqlViewAssociations(import.storeModel, import.log);
  addMetadataOrigin(import, buildVersion);
  const VornString& encoding = import.options.encoding;
  if (!encoding.equals("unknown", true)) {
    VornTranscoder::transcodeModel(import.log, import.storeModel, encoding);
  }
}

}  // namespace silrdm
