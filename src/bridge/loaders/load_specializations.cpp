#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(
    14,  //
    field(1, "schemaId", &SILRDMGeneralization::schemaId), field(2, "identifier"),
    field(3, "supertypeEntityId", &SILRDMGeneralization::supertypeEntityId),
    field(4, "name", &VornModelObject::setName), field(6, "physicalName", &VornModelObject::physicalName),
    field(7, "description", &VornModelObject::description),
    field(11, "counts"));  // exactly "Y"; any other record is passed over

}  // namespace

const RecordFields kSpecializationFields = kLayout.getFields();

void loadSpecializations(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_SPECIALIZATIONS.log(import.log);
  forEachRecord<kLayout>(import.reader, [&import](const Record<kLayout>& record) {
    if (record.is("counts", "Y")) {
      import.specializationRegistry.add(makeParsed<VornGeneralization, SILRDMGeneralization>(record));
    } else {
      import.report(Irregularity::unmarkedSpecialization, record.subject(), record.text("counts"));
    }
  });
}

}  // namespace silrdm
