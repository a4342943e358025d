#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/key.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(
    17,  //
    field(1, "schemaId", &SILRDMCombination::schemaId), field(2, "identifier"),
    field(3, "entityId", &SILRDMCombination::entityId), field(4, "name", &VornModelObject::setName),
    field(5, "kind"),    // "IDC": an identifier, "OTC": another unique combination, "FKEY": a foreign key
    field(6, "number"),  // of an identifier; exactly "0": the primary one
    field(7, "referencedCombinationId", &SILRDMCombination::referencedCombinationId),
    field(10, "roleId", &SILRDMCombination::roleId),
    field(12, "physicalName", &VornModelObject::physicalName),
    field(14, "description", &VornModelObject::description));

// Adds an index with the key's names, and registers the key.
void enter(Import& import, Parsed<VornKey> key, bool unique) {
  auto index = std::make_unique<VornIndex>();
  index->setName(key->getName());
  index->setPhysicalName(key->physicalName);
  index->unique = unique;
  hang(std::move(index), *key);
  import.combinationRegistry.add(std::move(key));
}

void loadCombination(Import& import, const Record<kLayout>& record) {
  if (record.is("kind", "FKEY")) {
    enter(import, makeParsed<VornForeignKey, SILRDMCombination>(record), false);
  } else if (record.is("kind", "IDC")) {
    auto key = makeParsed<VornCandidateKey, SILRDMCombination>(record);
    key->identifierKey = true;
    elementOf<SILRDMCombination>(*key)->primary = record.is("number", "0");
    enter(import, std::move(key), true);
  } else if (record.is("kind", "OTC")) {
    enter(import, makeParsed<VornCandidateKey, SILRDMCombination>(record), true);
  } else {
    import.report(Irregularity::unknownCombinationKind, record.subject(), record.text("kind"));
  }
}

}  // namespace

const RecordFields kCombinationFields = kLayout.getFields();

void loadCombinations(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_KEYS.log(import.log);
  forEachRecord<kLayout>(import.reader,
                         [&import](const Record<kLayout>& record) { loadCombination(import, record); });
}

}  // namespace silrdm
