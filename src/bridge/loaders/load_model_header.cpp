#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

enum class Field { name = 2, physicalName = 4, description = 5, last = description, width = 10 };

void loadModel(const Record<Field>& record) {
  storeModel->setName(record.text(Field::name));
  storeModel->setPhysicalName(record.text(Field::physicalName));
  storeModel->description = record.text(Field::description);
  storeModel->generalPointer = new SILRDMElement(record.text(Field::name));
}

}  // namespace

void loadModelHeader() {
  if (readAndHandleRecord<Field>(loadModel)) {
    tell(Irregularity::furtherModel, Subject(storeModel->getName().view(), storeModel->getName().view()));
    throw KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT.makeException({}).withContext("unexpected second record");
  }
}

}  // namespace silrdm
