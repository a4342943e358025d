#include "host/metamodel/store_model.h"

#include "host/base/object_memory.h"
#include "host/metamodel/traversal.h"

namespace {

// Destroys what an object owns, the lowest first.
class OwnedDestroyer final : public VornLinkVisitor {
 public:
  void visitOwned(VornLinkMany& members) override {
    if (VornObjectCollection* collection = members.getCollection()) {
      collection->setIndex(nullptr);
    }
    while (members.count() > 0) {
      VornObject* last = members.getCollection()->getEntries().back().object;
      last->visitLinks(*this);
      delete last;
    }
  }
  void visitReferences(VornLinkMany& /*members*/) override {}
  void visitReference(VornLinkOne& /*link*/) override {}
};

// Has an object forget what it owns.
class OwnedForgetter final : public VornLinkVisitor {
 public:
  void visitOwned(VornLinkMany& members) override { members.forget(); }
  void visitReferences(VornLinkMany& /*members*/) override {}
  void visitReference(VornLinkOne& /*link*/) override {}
};

bool isLeftToProcessEnd = false;

}  // namespace

void VornSystemPackage::visitTexts(VornTextVisitor& visitor) {
  VornPackage::visitTexts(visitor);
  visitor.visit(dataStoreName);
  visitor.visit(dataStoreVersion);
}

void VornModel::depthTraversal(VornTraversalOperation& operation, void* user) {
  operation.run(*this, user);
}

VornStoreModel::~VornStoreModel() {
  if (isLeftToProcessEnd) {
    OwnedForgetter forgetter;
    VornStoreModel::visitLinks(forgetter);
  } else {
    recursiveDelete();
  }
}

void VornStoreModel::leaveToProcessEnd() {
  isLeftToProcessEnd = !VornObjectMemory::isWatched();
}

void VornStoreModel::recursiveDelete() {
  OwnedDestroyer destroyer;
  VornStoreModel::visitLinks(destroyer);
}

void VornStoreModel::visitTexts(VornTextVisitor& visitor) {
  VornModel::visitTexts(visitor);
  visitor.visit(dataStoreVersionName);
}
