#include <memory>

#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/reader/record.h"

namespace silrdm {

namespace {

enum class Field {
  identifier = 2,
  targetSystemId = 3,
  nativeTypeName = 4,
  length = 10,  // for domains that give none
  last = length,
  width = 12,
};

void loadDataType(const Record<Field>& record) {
  auto type = std::make_unique<SILRDMDataType>(record.text(Field::identifier));
  type->targetSystemId = record.text(Field::targetSystemId);
  type->nativeTypeName = record.text(Field::nativeTypeName);
  type->lengthText = record.number(Field::length);
  dataTypeRegistry.add(type.get());
  type.release();
}

}  // namespace

void loadDataTypes() {
  forEachRecord<Field>(loadDataType);
}

}  // namespace silrdm
