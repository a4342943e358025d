#include "host/metamodel/verify.h"

#include <unordered_map>
#include <utility>

#include "host/metamodel/casting.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"

namespace {

std::string describe(const VornObject& object) {
  return std::string(getElementTypeName(object.getElementType())) + " '" +
         std::string(object.getName().view()) + "'";
}

// Whose end each end is, for all objects of a model.
class EndCollector final : public VornTraversalOperation, private VornLinkVisitor {
 public:
  void process(VornObject& object, void* /*user*/) override {
    current_ = &object;
    holders[&object.ownerEnd()] = current_;
    object.visitLinks(*this);
  }

  std::unordered_map<const VornLinkEnd*, const VornObject*> holders;

 private:
  void visitOwned(VornLinkMany& members) override { holders[&members] = current_; }
  void visitReferences(VornLinkMany& members) override { holders[&members] = current_; }
  void visitReference(VornLinkOne& link) override { holders[&link] = current_; }

  const VornObject* current_ = nullptr;
};

class Verifier final : public VornTraversalOperation, private VornLinkVisitor {
 public:
  Verifier(std::unordered_map<const VornLinkEnd*, const VornObject*> holders, VornModelState state)
      : holders_(std::move(holders)), state_(state) {}

  std::vector<std::string> problems;

  void process(VornObject& object, void* /*user*/) override {
    current_ = &object;
    object.visitLinks(*this);
    checkKey(object);
    checkIndex(object);
  }

 private:
  void visitOwned(VornLinkMany& members) override {
    for (auto entry = members.entries(); entry != std::default_sentinel; ++entry) {
      checkTwin(*entry);
      require((*entry).object->getOwner() == current_, "does not own what it holds");
    }
  }
  void visitReferences(VornLinkMany& members) override {
    for (auto entry = members.entries(); entry != std::default_sentinel; ++entry) {
      checkTwin(*entry);
    }
  }
  void visitReference(VornLinkOne& link) override {
    if (link.getObject() != nullptr) {
      checkTwin(link.getEntry());
    }
  }

  void checkTwin(const VornLinkEntry& entry) {
    if (state_ == VornModelState::complete &&
        !require(holders_.contains(&entry.object->ownerEnd()), "refers to an object outside the model")) {
      return;
    }
    const VornLinkEntry& twin = VornLinks::at(entry.twin);
    if (twin.object != current_ || &VornLinks::at(twin.twin) != &entry ||
        !isHolder(*entry.object, entry.twin.end)) {
      require(false, "has a link to " + describe(*entry.object) + " that does not lead back");
    }
  }

  // Whether the end is one of the object's, as far as the ends are known.
  bool isHolder(const VornObject& object, const VornLinkEnd* end) const {
    const auto holder = holders_.find(end);
    return state_ == VornModelState::incomplete || (holder != holders_.end() && holder->second == &object);
  }

  void checkKey(const VornObject& object) {
    if (const auto* key = dyn_cast<VornKey>(&object)) {
      require(key->index.get() == nullptr || key->index->getOwner() == key->getOwner(),
              "has an index of another table");
    }
    if (const auto* table = dyn_cast<VornClass>(&object)) {
      const VornCandidateKey* primary = table->primaryCandidateKey;
      require(primary == nullptr || primary->getOwner() == table,
              "has another table's key as its primary key");
    }
  }

  void checkIndex(const VornObject& object) {
    if (const auto* index = dyn_cast<VornIndex>(&object)) {
      for (const VornIndexMember* member : index->indexMemberCollection) {
        require(member->attribute.get() != nullptr, "has a member without its column");
      }
    }
  }

  bool require(bool holds, std::string_view otherwise) {
    if (!holds) {
      problems.push_back(describe(*current_) + " " + std::string(otherwise));
    }
    return holds;
  }

  std::unordered_map<const VornLinkEnd*, const VornObject*> holders_;
  VornModelState state_;
  VornObject* current_ = nullptr;
};

}  // namespace

std::vector<std::string> verifyModel(VornStoreModel& model, VornModelState state) {
  EndCollector ends;
  if (state == VornModelState::complete) {
    model.depthTraversal(ends, nullptr);
  }
  Verifier verifier(std::move(ends.holders), state);
  model.depthTraversal(verifier, nullptr);
  return std::move(verifier.problems);
}
