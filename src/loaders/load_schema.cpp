#include "loaders/loaders.h"
#include "reader/record.h"

namespace silrdm {

namespace {

enum class Field { identifier = 2, targetSystemId = 5, last = targetSystemId };

}  // namespace

void loadSchema() {
  readRecord(recordBuffer, sizeof recordBuffer);
  if (isRecordEmpty()) {
    return;
  }
  const Record<Field> record(recordBuffer);
  currentSchema = new SILRDMSchema(record.text(Field::identifier));
  currentSchema->targetSystemId = record.text(Field::targetSystemId);
}

}  // namespace silrdm
