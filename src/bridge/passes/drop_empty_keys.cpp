#include "bridge/import/import.h"
#include "bridge/passes/keep_only.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/key.h"

namespace silrdm {

void dropEmptyKeys(Import& import) {
  keepOnly(import.combinationRegistry, [&import](const VornKey& key) {
    if (key.attributeCollection.count() == 0) {
      if (key.getOwner() != nullptr) {  // dropped before otherwise
        import.report(Irregularity::keyWithoutColumns, key);
      }
      return false;
    }
    (key.getElementType() == VornElementType::candidateKey ? import.hasCandidateKeys : import.hasOtherKeys) =
        true;
    return true;
  });
}

}  // namespace silrdm
