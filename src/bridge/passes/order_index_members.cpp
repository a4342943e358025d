#include "bridge/elements/registries.h"
#include "bridge/passes/number_by_sequence.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/key.h"

namespace silrdm {

void orderIndexMembers() {
  for (const VornKey* key : combinationRegistry) {
    std::vector<VornIndexMember*> members;
    for (VornIndexMember* member : key->index->indexMemberCollection) {
      members.push_back(member);
    }
    numberBySequence<SILRDMCombinationColumn>(std::move(members));
  }
}

}  // namespace silrdm
