#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/reader/record.h"

namespace silrdm {

namespace {

enum class Field {
  schemaId = 1,
  identifier = 2,
  attributeId = 3,
  combinationId = 4,
  sequence = 6,            // position number of the column in its combination
  referencedColumnId = 7,  // of a foreign key: the combination column it refers to
  order = 10,              // exactly "A-Z": ascending
  last = order,
  width = 13,
};

void loadCombinationColumn(const Record<Field>& record) {
  auto column = std::make_unique<SILRDMCombinationColumn>(record.text(Field::identifier));
  column->schemaId = record.text(Field::schemaId);
  column->attributeId = record.text(Field::attributeId);
  column->combinationId = record.text(Field::combinationId);
  column->sequence = record.integer(Field::sequence);
  column->referencedColumnId = record.text(Field::referencedColumnId);
  column->ascending = record.is(Field::order, "A-Z");
  combinationColumnRegistry.add(column.get());
  column.release();
}

}  // namespace

void loadCombinationColumns() {
  forEachRecord<Field>(loadCombinationColumn);
}

}  // namespace silrdm
