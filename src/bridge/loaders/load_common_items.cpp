#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

enum class Field {
  identifier = 2,
  name = 3,
  domainId = 4,
  physicalName = 6,
  description = 7,
  length = 12,
  scale = 13,
  last = scale,
  width = 14,
};

void loadCommonItem(const Record<Field>& record) {
  auto item = makeParsed<VornDerivedType, SILRDMUserDomain>(record.text(Field::identifier));
  elementOf<SILRDMUserDomain>(*item)->domainId = record.text(Field::domainId);
  item->userDomain = true;
  item->setName(record.text(Field::name));
  item->setPhysicalName(record.text(Field::physicalName));
  item->description = record.text(Field::description);
  item->length = record.integer(Field::length);
  item->scale = record.integer(Field::scale);
  commonItemRegistry.add(item.get());
  item.release();
}

}  // namespace

void loadCommonItems() {
  KVB_SRRDM::SILRDM_I_CREATING_COMMON_ITEMS.log(*importLog);
  forEachRecord<Field>(loadCommonItem);
}

}  // namespace silrdm
