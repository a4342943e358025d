#include "bridge/loaders/load_records.h"

namespace silrdm {

namespace {

constexpr auto kLayout =
    recordLayout(13,  //
                 field(1, "schemaId", &SILRDMCombinationColumn::schemaId), field(2, "identifier"),
                 field(3, "attributeId", &SILRDMCombinationColumn::attributeId),
                 field(4, "combinationId", &SILRDMCombinationColumn::combinationId),
                 field(6, "sequence", &SILRDMCombinationColumn::sequence),
                 // Of a foreign key: the combination column it refers to.
                 field(7, "referencedColumnId", &SILRDMCombinationColumn::referencedColumnId),
                 field(10, "order"));  // exactly "A-Z": ascending

}  // namespace

const RecordFields kCombinationColumnFields = kLayout.getFields();

void loadCombinationColumns(Import& import) {
  forEachRecord<kLayout>(import.reader, [&import](const Record<kLayout>& record) {
    auto column = makeElement<SILRDMCombinationColumn>(record);
    column->ascending = record.is("order", "A-Z");
    import.combinationColumnRegistry.add(std::move(column));
  });
}

}  // namespace silrdm
