#include "bridge/passes/keep_only.h"
#include "bridge/passes/passes.h"
#include "bridge/reporting/reports.h"
#include "host/metamodel/key.h"

namespace silrdm {

void dropEmptyKeys() {
  keepOnly(combinationRegistry, [](const VornKey& key) {
    if (key.attributeCollection.count() == 0) {
      if (key.getOwner() != nullptr) {  // dropped before otherwise
        tell(Irregularity::keyWithoutColumns, key);
      }
      return false;
    }
    (key.getElementType() == VornElementType::candidateKey ? hasCandidateKeys : hasOtherKeys) = true;
    return true;
  });
}

}  // namespace silrdm
