#include "assembly/keep_only.h"
#include "assembly/passes.h"
#include "bridge/import_state.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

bool belongsToSchema(const VornString& schemaId) {
  return currentSchema->identifier.equals(schemaId.trim(), true);
}

// For registries of host objects: an object without an element stays.
template <class Element, class Registry>
void keepOwnSchema(Registry& registry) {
  keepOnly(registry, [](const VornObject& object) {
    const auto* element = elementOf<Element>(object);
    return element == nullptr || belongsToSchema(element->schemaId);
  });
}

}  // namespace

// Three comparisons that differ on purpose: blanks around a schema's identifier do not count, those around a
// target system's do; and a data type of no target system serves them all, while a domain of none serves
// none.
void filterBySchema() {
  if (currentSchema == nullptr) {
    return;
  }
  keepOwnSchema<SILRDMAttribute>(attributeRegistry);
  keepOwnSchema<SILRDMEntity>(entityRegistry);
  keepOwnSchema<SILRDMEntity>(viewRegistry);
  keepOwnSchema<SILRDMAssociation>(relationshipRegistry);
  keepOwnSchema<SILRDMAssociationRole>(roleRegistry);
  keepOwnSchema<SILRDMGeneralization>(specializationRegistry);
  keepOwnSchema<SILRDMCombination>(combinationRegistry);
  keepOnly(combinationColumnRegistry,
           [](const SILRDMCombinationColumn& column) { return belongsToSchema(column.schemaId); });
  keepOnly(domainRegistry, [](const VornDerivedType& domain) {
    return elementOf<SILRDMDomain>(domain)->targetSystemId == currentSchema->targetSystemId;
  });
  keepOnly(dataTypeRegistry, [](const SILRDMDataType& type) {
    return type.targetSystemId.empty() || currentSchema->targetSystemId.equals(type.targetSystemId, true);
  });
}

}  // namespace silrdm
