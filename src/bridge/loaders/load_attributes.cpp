#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/feature.h"

namespace silrdm {

namespace {

enum class Field {
  schemaId = 1,
  identifier = 2,
  entityId = 3,
  name = 4,
  sequence = 5,  // position number of the column in its table
  domainId = 9,
  physicalName = 17,
  description = 19,
  text = 22,
  note = 23,
  length = 29,
  optional = 31,  // exactly "N": a value is required
  scale = 32,
  last = scale,
  width = 43,
};

void loadAttribute(const Record<Field>& record) {
  auto attribute = makeParsed<VornAttribute, SILRDMAttribute>(record.text(Field::identifier));
  auto& element = *elementOf<SILRDMAttribute>(*attribute);
  element.schemaId = record.text(Field::schemaId);
  element.entityId = record.text(Field::entityId);
  element.sequence = record.integer(Field::sequence);
  element.domainId = record.text(Field::domainId);
  element.length = record.integer(Field::length);
  element.scale = record.integer(Field::scale);
  attribute->setName(record.text(Field::name));
  attribute->setPhysicalName(record.text(Field::physicalName));
  attribute->description = record.text(Field::description);
  attribute->attributeText = record.text(Field::text);
  attribute->optional = !record.is(Field::optional, "N");
  if (!record.isEmpty(Field::note)) {
    auto note = std::make_unique<VornNote>();
    note->noteText = record.text(Field::note);
    attribute->addNote(note.get());
    note.release();
  }
  attributeRegistry.add(attribute.get());
  attribute.release();
}

}  // namespace

void loadAttributes() {
  KVB_SRRDM::SILRDM_I_CREATING_COLUMNS.log(*importLog);
  forEachRecord<Field>(loadAttribute);
}

}  // namespace silrdm
