#include "assembly/keep_only.h"
#include "assembly/passes.h"
#include "bridge/import_state.h"
#include "host/metamodel/key.h"

namespace silrdm {

void dropEmptyKeys() {
  keepOnly(combinationRegistry, [](const VornKey& key) {
    if (key.attributeCollection.count() == 0) {
      return false;
    }
    (key.getElementType() == VornElementType::candidateKey ? hasCandidateKeys : hasOtherKeys) = true;
    return true;
  });
}

}  // namespace silrdm
