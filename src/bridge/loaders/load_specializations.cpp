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
  supertypeEntityId = 3,
  name = 4,
  physicalName = 6,
  description = 7,
  counts = 11,  // exactly "Y"; any other record is passed over
  last = counts,
  width = 14,
};

void loadSpecialization(const Record<Field>& record) {
  if (!record.is(Field::counts, "Y")) {
    tell(Irregularity::unmarkedSpecialization, record.subject(), record.text(Field::counts));
    return;
  }
  auto generalization = makeParsed<VornGeneralization, SILRDMGeneralization>(record.text(Field::identifier));
  auto& element = *elementOf<SILRDMGeneralization>(*generalization);
  element.schemaId = record.text(Field::schemaId);
  element.supertypeEntityId = record.text(Field::supertypeEntityId);
  generalization->setName(record.text(Field::name));
  generalization->setPhysicalName(record.text(Field::physicalName));
  generalization->description = record.text(Field::description);
  specializationRegistry.add(generalization.get());
  generalization.release();
}

}  // namespace

void loadSpecializations() {
  KVB_SRRDM::SILRDM_I_CREATING_SPECIALIZATIONS.log(*importLog);
  forEachRecord<Field>(loadSpecialization);
}

}  // namespace silrdm
