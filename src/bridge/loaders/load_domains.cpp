#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

enum class Field {
  identifier = 2,
  targetSystemId = 3,
  name = 4,
  dataTypeId = 6,
  physicalName = 11,
  description = 12,
  text1 = 15,
  length = 23,
  text3 = 25,
  text2 = 27,
  scale = 29,
  last = scale,
  width = 34,
};

void loadDomain(const Record<Field>& record) {
  auto domain = makeParsed<VornDerivedType, SILRDMDomain>(record.text(Field::identifier));
  auto& element = *elementOf<SILRDMDomain>(*domain);
  element.targetSystemId = record.text(Field::targetSystemId);
  element.dataTypeId = record.text(Field::dataTypeId);
  domain->setName(record.text(Field::name));
  domain->setPhysicalName(record.text(Field::physicalName));
  domain->description = record.text(Field::description);
  domain->domainText1 = record.text(Field::text1);
  domain->domainText2 = record.text(Field::text2);
  domain->domainText3 = record.text(Field::text3);
  domain->length = record.integer(Field::length);
  domain->scale = record.integer(Field::scale);
  domainRegistry.add(domain.get());
  domain.release();
}

}  // namespace

void loadDomains() {
  KVB_SRRDM::SILRDM_I_CREATING_DOMAINS.log(*importLog);
  forEachRecord<Field>(loadDomain);
}

}  // namespace silrdm
