#include "bridge/loaders/loaders.h"
#include "bridge/reader/record.h"

namespace silrdm {

namespace {

enum class Field { identifier = 2, targetSystemId = 5, last = targetSystemId, width = 19 };

void loadCurrentSchema(const Record<Field>& record) {
  currentSchema = new SILRDMSchema(record.text(Field::identifier));
  currentSchema->targetSystemId = record.text(Field::targetSystemId);
}

}  // namespace

void loadSchema() {
  if (readAndHandleRecord<Field>(loadCurrentSchema)) {
    tell(Irregularity::furtherSchema, currentSchema == nullptr ? Subject("", "") : Subject(*currentSchema));
  }
}

}  // namespace silrdm
