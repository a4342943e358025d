#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/relationship.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(12,  //
                                      field(1, "schemaId", &SILRDMAssociation::schemaId),
                                      field(2, "identifier"), field(3, "name", &VornModelObject::setName),
                                      field(6, "physicalName", &VornModelObject::physicalName),
                                      field(7, "description", &VornModelObject::description));

}  // namespace

const RecordFields kRelationshipFields = kLayout.getFields();

void loadRelationships(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_RELATIONSHIPS.log(import.log);
  loadEach<kLayout, SILRDMAssociation>(import.reader, import.relationshipRegistry);
}

}  // namespace silrdm
