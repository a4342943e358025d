#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/feature.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(
    43,  //
    field(1, "schemaId", &SILRDMAttribute::schemaId), field(2, "identifier"),
    field(3, "entityId", &SILRDMAttribute::entityId), field(4, "name", &VornModelObject::setName),
    field(5, "sequence", &SILRDMAttribute::sequence), field(9, "domainId", &SILRDMAttribute::domainId),
    field(17, "physicalName", &VornModelObject::physicalName),
    field(19, "description", &VornModelObject::description),
    field(22, "text", &VornAttribute::attributeText),  //
    field(23, "note"), field(29, "length", &SILRDMAttribute::length),
    field(31, "optional"),  // exactly "N": a value is required
    field(32, "scale", &SILRDMAttribute::scale));

void finishAttribute(VornAttribute& attribute, const Record<kLayout>& record) {
  attribute.optional = !record.is("optional", "N");
  if (!record.isEmpty("note")) {
    auto note = std::make_unique<VornNote>();
    note->noteText = record.text("note");
    attribute.addNote(std::move(note));
  }
}

}  // namespace

const RecordFields kAttributeFields = kLayout.getFields();

void loadAttributes(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_COLUMNS.log(import.log);
  loadEach<kLayout, SILRDMAttribute>(import.reader, import.attributeRegistry, finishAttribute);
}

}  // namespace silrdm
