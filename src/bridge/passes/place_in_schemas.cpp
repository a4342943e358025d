#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

// Returns the unnamed default schema; creates it if necessary.
VornDatabaseSchema& getDefaultSchema(Import& import) {
  if (import.defaultSchema == nullptr) {
    import.defaultSchema = &import.storeModel.addDataPackage(std::make_unique<VornDatabaseSchema>());
  }
  return *import.defaultSchema;
}

// Places the object in its user's schema. If there is none, or the name is taken there, places it in the
// default schema; if the name is taken there as well, nowhere.
void placeInSchema(Import& import, VornNamespaceElement& object, const SILRDMEntity& element) {
  const VornString& name = object.physicalName.empty() ? object.getName() : object.physicalName;
  VornDatabaseSchema* schema = import.userRegistry.findFirst(element.userId);
  if (schema != nullptr && elementOf<SILRDMUser>(*schema)->placedNames.add(name)) {
    schema->addImportedNamespaceElement(&object);
    return;
  }
  const Subject subject(element, object.getName());
  if (import.defaultPlacedNames.add(name)) {
    if (schema == nullptr) {
      import.report(Irregularity::ownerMissing, subject, element.userId);
    } else {
      import.report(Irregularity::nameTakenInSchema, subject, name);
    }
    getDefaultSchema(import).addImportedNamespaceElement(&object);
  } else {
    import.report(Irregularity::inNoSchema, subject, name);
  }
}

}  // namespace

void placeInSchemas(Import& import) {
  for (VornClass* table : import.entityRegistry) {
    if (const auto* element = elementOf<SILRDMEntity>(*table)) {
      placeInSchema(import, *table, *element);
      if (table->synonymCollection.count() > 0) {
        placeInSchema(import, *table->synonymCollection[0], *element);
      }
    }
  }
  for (VornSQLViewEntity* view : import.viewRegistry) {
    if (const auto* element = elementOf<SILRDMEntity>(*view)) {
      placeInSchema(import, *view, *element);
    }
  }
}

}  // namespace silrdm
