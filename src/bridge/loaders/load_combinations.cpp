#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/key.h"

namespace silrdm {

namespace {

enum class Field {
  schemaId = 1,
  identifier = 2,
  entityId = 3,
  name = 4,
  kind = 5,    // "IDC": an identifier, "OTC": another unique combination, "FKEY": a foreign key
  number = 6,  // of an identifier; exactly "0": the primary one
  referencedCombinationId = 7,
  roleId = 10,
  physicalName = 12,
  description = 14,
  last = description,
  width = 17,
};

template <class Key>
Parsed<Key> makeKey(const Record<Field>& record) {
  auto key = makeParsed<Key, SILRDMCombination>(record.text(Field::identifier));
  auto& element = *elementOf<SILRDMCombination>(*key);
  element.schemaId = record.text(Field::schemaId);
  element.entityId = record.text(Field::entityId);
  element.referencedCombinationId = record.text(Field::referencedCombinationId);
  element.roleId = record.text(Field::roleId);
  element.primary = false;
  key->setName(record.text(Field::name));
  key->setPhysicalName(record.text(Field::physicalName));
  key->description = record.text(Field::description);
  return key;
}

// Gives the key an index of its names and enters it in the registry.
void enter(Parsed<VornKey> key, bool unique) {
  auto index = std::make_unique<VornIndex>();
  index->setName(key->getName());
  index->setPhysicalName(key->physicalName);
  index->unique = unique;
  index.release()->addKey(key.get());
  combinationRegistry.add(key.get());
  key.release();
}

void loadCombination(const Record<Field>& record) {
  if (record.is(Field::kind, "FKEY")) {
    enter(makeKey<VornForeignKey>(record), false);
  } else if (record.is(Field::kind, "IDC")) {
    auto key = makeKey<VornCandidateKey>(record);
    key->identifierKey = true;
    elementOf<SILRDMCombination>(*key)->primary = record.is(Field::number, "0");
    enter(std::move(key), true);
  } else if (record.is(Field::kind, "OTC")) {
    enter(makeKey<VornCandidateKey>(record), true);
  } else {
    tell(Irregularity::unknownCombinationKind, record.subject(), record.text(Field::kind));
  }
}

}  // namespace

void loadCombinations() {
  KVB_SRRDM::SILRDM_I_CREATING_KEYS.log(*importLog);
  forEachRecord<Field>(loadCombination);
}

}  // namespace silrdm
