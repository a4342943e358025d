#include "host/metamodel/verify.h"

#include <unordered_map>
#include <utility>

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
  explicit Verifier(std::unordered_map<const VornLinkEnd*, const VornObject*> holders)
      : holders_(std::move(holders)) {}

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
    if (require(holders_.contains(&entry.object->ownerEnd()), "refers to an object outside the model")) {
      const auto holder = holders_.find(entry.twin.end);
      const VornLinkEntry& twin = VornLinks::at(entry.twin);
      require(holder != holders_.end() && holder->second == entry.object && twin.object == current_ &&
                  &VornLinks::at(twin.twin) == &entry,
              "has a link to " + describe(*entry.object) + " that does not lead back");
    }
  }

  void checkKey(const VornObject& object) {
    if (const auto* key = dynamic_cast<const VornKey*>(&object)) {
      require(key->index.get() == nullptr || key->index->getOwner() == key->getOwner(),
              "has an index of another table");
    }
    if (const auto* table = dynamic_cast<const VornClass*>(&object)) {
      const VornCandidateKey* primary = table->primaryCandidateKey;
      require(primary == nullptr || primary->getOwner() == table,
              "has another table's key as its primary key");
    }
  }

  void checkIndex(const VornObject& object) {
    if (const auto* index = dynamic_cast<const VornIndex*>(&object)) {
      for (const VornIndexMember* member : index->indexMemberCollection) {
        require(member->attribute.get() != nullptr, "has a member without its column");
      }
    }
  }

  bool require(bool holds, const std::string& otherwise) {
    if (!holds) {
      problems.push_back(describe(*current_) + " " + otherwise);
    }
    return holds;
  }

  std::unordered_map<const VornLinkEnd*, const VornObject*> holders_;
  VornObject* current_ = nullptr;
};

}  // namespace

std::vector<std::string> verifyModel(VornStoreModel& model) {
  EndCollector ends;
  model.depthTraversal(ends, nullptr);
  Verifier verifier(std::move(ends.holders));
  model.depthTraversal(verifier, nullptr);
  return std::move(verifier.problems);
}
