#include "bridge/passes/typing.h"

#include "bridge/import/import.h"
#include "host/datatypes/logical_types.h"
#include "host/metamodel/casting.h"
#include "host/metamodel/store_model.h"
#include "host/services/types.h"

namespace silrdm {

namespace {

VornString sizeSuffix(std::int32_t length, std::int32_t scale) {
  VornString suffix;
  if (length != 0) {
    suffix += VornString("_") + VornString(length);
    if (scale != 0) {
      suffix += VornString("_") + VornString(scale);
    }
  }
  return suffix;
}

}  // namespace

void applySizeSuffix(VornDerivedType& type, const VornString& dataType, std::int32_t length,
                     std::int32_t scale) {
  const VornString suffix = sizeSuffix(length, scale);
  type.setName(type.getName() + suffix);
  type.setPhysicalName(dataType + suffix);
}

VornBaseType& baseTypeFor(Import& import, const VornString& dataType) {
  const VornString name = getDefaultLogicalName(dataType);
  VornType* known = import.storeModel.typeCollection.get(name);
  if (auto* type = dyn_cast<VornBaseType>(known)) {
    return *type;
  }
  return import.storeModel.addType(createBaseType(name));
}

}  // namespace silrdm
