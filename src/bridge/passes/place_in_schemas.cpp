#include "bridge/elements/registries.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

// The unnamed schema for what no user's schema can take, made when it is first needed.
VornDatabaseSchema& getDefaultSchema() {
  if (defaultSchema == nullptr) {
    auto schema = std::make_unique<VornDatabaseSchema>();
    storeModel->addDataPackage(schema.get());
    defaultSchema = schema.release();
  }
  return *defaultSchema;
}

// Places the object in the schema of that user or, when there is none or it has an object of that name, in
// the default schema; when that has one too, nowhere.
void placeInSchema(VornNamespaceElement& object, const SILRDMEntity& element) {
  const VornString& name = object.physicalName.empty() ? object.getName() : object.physicalName;
  VornDatabaseSchema* schema = userRegistry.findFirst(element.userId);
  if (schema != nullptr && elementOf<SILRDMUser>(*schema)->placedNames.add(name)) {
    schema->addImportedNamespaceElement(&object);
    return;
  }
  const Subject subject(element, object.getName());
  if (defaultPlacedNames.add(name)) {
    if (schema == nullptr) {
      tell(Irregularity::ownerMissing, subject, element.userId);
    } else {
      tell(Irregularity::nameTakenInSchema, subject, name);
    }
    getDefaultSchema().addImportedNamespaceElement(&object);
  } else {
    tell(Irregularity::inNoSchema, subject, name);
  }
}

}  // namespace

void placeInSchemas() {
  for (VornClass* table : entityRegistry) {
    if (const auto* element = elementOf<SILRDMEntity>(*table)) {
      placeInSchema(*table, *element);
      if (table->synonymCollection.count() > 0) {
        placeInSchema(*table->synonymCollection[0], *element);
      }
    }
  }
  for (VornSQLViewEntity* view : viewRegistry) {
    if (const auto* element = elementOf<SILRDMEntity>(*view)) {
      placeInSchema(*view, *element);
    }
  }
}

}  // namespace silrdm
