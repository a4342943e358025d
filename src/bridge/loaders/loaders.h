// The loaders: one for each section that the import uses, as a function that reads exactly that section from
// `inputFile`. A loader makes parsed elements and the first host objects and fills the registries;
// identifiers stay texts until a pass looks them up, because sections come in an order that does not follow
// their references.
#pragma once

namespace silrdm {

void loadSpecializations();     // specializationRegistry
void loadAttributes();          // attributeRegistry
void loadCombinations();        // combinationRegistry: keys, each with its index
void loadCombinationColumns();  // combinationColumnRegistry
void loadCommonItems();         // commonItemRegistry
void loadRelationships();       // relationshipRegistry
void loadDataTypes();           // dataTypeRegistry
void loadRoles();               // roleRegistry
void loadDomains();             // domainRegistry
void loadModelHeader();         // the store model's names; a second record ends the import
                                // (SILRDM_I_BAD_FILE_FORMAT)
void loadSchema();              // currentSchema; reads one record, whatever follows it
void loadEntities();            // entityRegistry, viewRegistry; the design package and the diagram
void loadTargetSystems();  // detectedTargetSystem, for which it needs currentSchema; the model's data store
void loadUsers();          // userRegistry; the store model's data packages

}  // namespace silrdm
