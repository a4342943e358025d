#include "bridge/messages.h"
#include "host/metamodel/store_model.h"
#include "loaders/loaders.h"
#include "reader/record.h"

namespace silrdm {

namespace {

enum class Field { name = 2, physicalName = 4, description = 5, last = description };

}  // namespace

void loadModelHeader() {
  const bool more = readRecord(recordBuffer, sizeof recordBuffer);
  if (!isRecordEmpty()) {
    const Record<Field> record(recordBuffer);
    storeModel->setName(record.text(Field::name));
    storeModel->setPhysicalName(record.text(Field::physicalName));
    storeModel->description = record.text(Field::description);
    storeModel->generalPointer = new SILRDMElement(record.text(Field::name));
  }
  if (more) {
    throw KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT.makeException({}).withContext("no other may follow");
  }
}

}  // namespace silrdm
