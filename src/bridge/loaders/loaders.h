// The loaders: one for each section that the import uses, as a function that reads exactly that section. A
// loader makes parsed elements and the first host objects and fills the registries; identifiers stay texts
// until a pass looks them up, because sections come in an order that does not follow their references.
#pragma once

#include "bridge/reader/record_layout.h"

namespace silrdm {

class Import;

void loadSpecializations(Import& import);     // specializationRegistry
void loadAttributes(Import& import);          // attributeRegistry
void loadCombinations(Import& import);        // combinationRegistry: keys, each with its index
void loadCombinationColumns(Import& import);  // combinationColumnRegistry
void loadCommonItems(Import& import);         // commonItemRegistry
void loadRelationships(Import& import);       // relationshipRegistry
void loadDataTypes(Import& import);           // dataTypeRegistry
void loadRoles(Import& import);               // roleRegistry
void loadDomains(Import& import);             // domainRegistry
void loadModelHeader(Import& import);         // the store model's names; a second record ends the import
                                              // (SILRDM_I_BAD_FILE_FORMAT)
void loadSchema(Import& import);              // currentSchema; reads one record, whatever follows it
void loadEntities(Import& import);       // entityRegistry, viewRegistry; the design package and the diagram
void loadTargetSystems(Import& import);  // detectedTargetSystem, which needs currentSchema; the model's data
                                         // store
void loadUsers(Import& import);          // userRegistry; the store model's data packages

// The fields that each of them uses.
extern const RecordFields kSpecializationFields;
extern const RecordFields kAttributeFields;
extern const RecordFields kCombinationFields;
extern const RecordFields kCombinationColumnFields;
extern const RecordFields kCommonItemFields;
extern const RecordFields kRelationshipFields;
extern const RecordFields kDataTypeFields;
extern const RecordFields kRoleFields;
extern const RecordFields kDomainFields;
extern const RecordFields kModelHeaderFields;
extern const RecordFields kSchemaFields;
extern const RecordFields kEntityFields;
extern const RecordFields kTargetSystemFields;
extern const RecordFields kUserFields;

}  // namespace silrdm
