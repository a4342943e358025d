#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

namespace {

enum class Field {
  schemaId = 1,
  identifier = 2,
  name = 3,
  physicalName = 6,
  description = 7,
  last = description,
  width = 12,
};

void loadRelationship(const Record<Field>& record) {
  auto association = makeParsed<VornAssociation, SILRDMAssociation>(record.text(Field::identifier));
  elementOf<SILRDMAssociation>(*association)->schemaId = record.text(Field::schemaId);
  association->setName(record.text(Field::name));
  association->setPhysicalName(record.text(Field::physicalName));
  association->description = record.text(Field::description);
  relationshipRegistry.add(association.get());
  association.release();
}

}  // namespace

void loadRelationships() {
  KVB_SRRDM::SILRDM_I_CREATING_RELATIONSHIPS.log(*importLog);
  forEachRecord<Field>(loadRelationship);
}

}  // namespace silrdm
