#include "bridge/import/import.h"
#include "bridge/passes/keep_only.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

// Returns `isKept`, and reports the item if it is false.
template <class Item>
bool keepIf(Import& import, bool isKept, Irregularity otherwise, const Item& item, const VornString& value) {
  if (!isKept) {
    import.report(otherwise, item, value);
  }
  return isKept;
}

template <class Item>
bool belongsToSchema(Import& import, const Item& item, const VornString& schemaId) {
  return keepIf(import, import.currentSchema->identifier.equals(schemaId.trim(), true),
                Irregularity::otherSchema, item, schemaId);
}

// For registries of host objects. An object without an element is kept.
template <class Element, class Registry>
void keepOwnSchema(Import& import, Registry& registry) {
  keepOnly(registry, [&import](const VornObject& object) {
    const auto* element = elementOf<Element>(object);
    return element == nullptr || belongsToSchema(import, object, element->schemaId);
  });
}

}  // namespace

// The three comparisons differ on purpose: blanks around a schema identifier are ignored, those around a
// target system are not, and a data type without a target system belongs to all systems, while a domain
// without one belongs to none.
void filterBySchema(Import& import) {
  if (import.currentSchema == nullptr) {
    return;
  }
  keepOwnSchema<SILRDMAttribute>(import, import.attributeRegistry);
  keepOwnSchema<SILRDMEntity>(import, import.entityRegistry);
  keepOwnSchema<SILRDMEntity>(import, import.viewRegistry);
  keepOwnSchema<SILRDMAssociation>(import, import.relationshipRegistry);
  keepOwnSchema<SILRDMAssociationRole>(import, import.roleRegistry);
  keepOwnSchema<SILRDMGeneralization>(import, import.specializationRegistry);
  keepOwnSchema<SILRDMCombination>(import, import.combinationRegistry);
  keepOnly(import.combinationColumnRegistry, [&import](const SILRDMCombinationColumn& column) {
    return belongsToSchema(import, column, column.schemaId);
  });
  keepOnly(import.domainRegistry, [&import](const VornDerivedType& domain) {
    const VornString& system = elementOf<SILRDMDomain>(domain)->targetSystemId;
    return keepIf(import, system == import.currentSchema->targetSystemId, Irregularity::otherTargetSystem,
                  domain, system);
  });
  keepOnly(import.dataTypeRegistry, [&import](const SILRDMDataType& type) {
    const VornString& system = type.targetSystemId;
    return keepIf(import, system.empty() || import.currentSchema->targetSystemId.equals(system, true),
                  Irregularity::otherTargetSystem, type, system);
  });
}

}  // namespace silrdm
