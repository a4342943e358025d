#include "bridge/passes/keep_only.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

// Returns `isKept`, and tells where it is false.
template <class Item>
bool keepIf(bool isKept, Irregularity otherwise, const Item& item, const VornString& value) {
  if (!isKept) {
    tell(otherwise, item, value);
  }
  return isKept;
}

template <class Item>
bool belongsToSchema(const Item& item, const VornString& schemaId) {
  return keepIf(currentSchema->identifier.equals(schemaId.trim(), true), Irregularity::otherSchema, item,
                schemaId);
}

// For registries of host objects: an object without an element stays.
template <class Element, class Registry>
void keepOwnSchema(Registry& registry) {
  keepOnly(registry, [](const VornObject& object) {
    const auto* element = elementOf<Element>(object);
    return element == nullptr || belongsToSchema(object, element->schemaId);
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
           [](const SILRDMCombinationColumn& column) { return belongsToSchema(column, column.schemaId); });
  keepOnly(domainRegistry, [](const VornDerivedType& domain) {
    const VornString& system = elementOf<SILRDMDomain>(domain)->targetSystemId;
    return keepIf(system == currentSchema->targetSystemId, Irregularity::otherTargetSystem, domain, system);
  });
  keepOnly(dataTypeRegistry, [](const SILRDMDataType& type) {
    const VornString& system = type.targetSystemId;
    return keepIf(system.empty() || currentSchema->targetSystemId.equals(system, true),
                  Irregularity::otherTargetSystem, type, system);
  });
}

}  // namespace silrdm
