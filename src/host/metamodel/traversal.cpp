#include "host/metamodel/traversal.h"

namespace {

// Runs an operation over what an object owns.
class OwnedRunner final : public VornLinkVisitor {
 public:
  OwnedRunner(VornTraversalOperation& operation, void* user) : operation_(operation), user_(user) {}

  void visitOwned(VornLinkMany& members) override {
    for (auto member = members.entries(); member != std::default_sentinel; ++member) {
      operation_.run(*(*member).object, user_);
    }
  }
  void visitReferences(VornLinkMany& /*members*/) override {}
  void visitReference(VornLinkOne& /*link*/) override {}

 private:
  VornTraversalOperation& operation_;
  void* user_;
};

}  // namespace

VornTraversalOperation::~VornTraversalOperation() = default;

bool VornTraversalOperation::pre_process(VornObject& /*object*/, void*& /*user*/) {
  return true;
}

void VornTraversalOperation::run(VornObject& object, void* user) {
  if (pre_process(object, user)) {
    process(object, user);
    OwnedRunner members(*this, user);
    object.visitLinks(members);
  }
}
