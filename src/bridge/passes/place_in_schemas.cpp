#include "bridge/import/import.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

// The unnamed schema for what no user's schema can take, made when it is first needed.
VornDatabaseSchema& getDefaultSchema(Import& import) {
  if (import.defaultSchema == nullptr) {
    auto schema = std::make_unique<VornDatabaseSchema>();
    import.storeModel.addDataPackage(schema.get());
    import.defaultSchema = schema.release();
  }
  return *import.defaultSchema;
}

// Places the object in the schema of that user or, when there is none or it has an object of that name, in
// the default schema; when that has one too, nowhere.
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
