#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(
    34,  //
    field(2, "identifier"), field(3, "targetSystemId", &SILRDMDomain::targetSystemId),
    field(4, "name", &VornModelObject::setName), field(6, "dataTypeId", &SILRDMDomain::dataTypeId),
    field(11, "physicalName", &VornModelObject::physicalName),
    field(12, "description", &VornModelObject::description),
    field(15, "text1", &VornDerivedType::domainText1), field(23, "length", &VornDerivedType::length),
    field(25, "text3", &VornDerivedType::domainText3), field(27, "text2", &VornDerivedType::domainText2),
    field(29, "scale", &VornDerivedType::scale));

}  // namespace

const RecordFields kDomainFields = kLayout.getFields();

void loadDomains(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_DOMAINS.log(import.log);
  loadEach<kLayout, SILRDMDomain>(import.reader, import.domainRegistry);
}

}  // namespace silrdm
