#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

enum class Field { identifier = 2, name = 3, description = 6, last = description, width = 6 };

void loadUser(const Record<Field>& record) {
  auto schema = makeParsed<VornDatabaseSchema, SILRDMUser>(record.text(Field::identifier));
  schema->setName(record.text(Field::name));
  schema->setPhysicalName(record.text(Field::name));
  schema->description = record.text(Field::description);
  storeModel->addDataPackage(schema.get());
  userRegistry.add(schema.release());
}

}  // namespace

void loadUsers() {
  KVB_SRRDM::SILRDM_I_CREATING_USERS.log(*importLog);
  forEachRecord<Field>(loadUser);
}

}  // namespace silrdm
