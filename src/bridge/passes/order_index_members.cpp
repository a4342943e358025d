#include "bridge/import/import.h"
#include "bridge/passes/number_by_sequence.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/key.h"

namespace silrdm {

void orderIndexMembers(Import& import) {
  for (const VornKey* key : import.combinationRegistry) {
    std::vector<VornIndexMember*> members;
    for (VornIndexMember* member : key->index->indexMemberCollection) {
      members.push_back(member);
    }
    numberBySequence<SILRDMCombinationColumn>(std::move(members));
  }
}

}  // namespace silrdm
