#include "loaders/loaders.h"
#include "reader/record.h"

namespace silrdm {

namespace {

enum class Field { identifier = 2, targetSystemId = 5, last = targetSystemId };

}  // namespace

void loadSchema() {
  const bool more = readRecord(recordBuffer, sizeof recordBuffer);
  if (!isRecordEmpty()) {
    const Record<Field> record(recordBuffer);
    currentSchema = new SILRDMSchema(record.text(Field::identifier));
    currentSchema->targetSystemId = record.text(Field::targetSystemId);
  }
  if (more) {
    tell(Irregularity::furtherSchema, currentSchema == nullptr ? Subject("", "") : Subject(*currentSchema));
  }
}

}  // namespace silrdm
