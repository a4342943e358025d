#include "assembly/number_by_sequence.h"
#include "assembly/passes.h"
#include "elements/registries.h"
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
