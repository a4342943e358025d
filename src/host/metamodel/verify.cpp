#include "host/metamodel/verify.h"

#include <unordered_set>

#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"

namespace {

std::string describe(const VornObject& object) {
  return std::string(getElementTypeName(object.getElementType())) + " '" +
         std::string(object.getName().view()) + "'";
}

// Remembers every object of the model.
class Collector final : public VornTraversalOperation {
 public:
  void process(VornObject& object, void* /*user*/) override { objects.insert(&object); }

  std::unordered_set<const VornObject*> objects;
};

class Verifier final : public VornTraversalOperation, private VornLinkVisitor {
 public:
  explicit Verifier(std::unordered_set<const VornObject*> known) : known_(std::move(known)) {}

  std::vector<std::string> problems;

  void process(VornObject& object, void* /*user*/) override {
    current_ = &object;
    object.visitLinks(*this);
    checkKey(object);
    checkIndex(object);
    checkNames(object);
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
    if (require(known_.contains(entry.object), "refers to an object outside the model")) {
      const VornLinkEntry& twin = VornLinks::at(entry.twin);
      require(twin.object == current_ && &VornLinks::at(twin.twin) == &entry,
              "has a link to " + describe(*entry.object) + " that does not lead back");
    }
  }

  void checkKey(const VornObject& object) {
    if (const auto* key = dynamic_cast<const VornKey*>(&object)) {
      for (const VornAttribute* attribute : key->attributeCollection) {
        require(attribute->getOwner() == key->getOwner(), "has a column of another table");
      }
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
        const VornAttribute* attribute = member->attribute;
        require(attribute != nullptr && attribute->getOwner() == index->getOwner(),
                "has a member without its column");
      }
    }
  }

  void checkNames(const VornObject& object) {
    if (const auto* package = dynamic_cast<const VornNamespace*>(&object)) {
      checkDistinct(package->elementCollection);
    }
    if (const auto* classifier = dynamic_cast<const VornClassifier*>(&object)) {
      checkDistinct(classifier->featureCollection);
    }
  }

  template <class T>
  void checkDistinct(const VornMany<T>& members) {
    std::unordered_set<std::string_view> names;
    for (const T* member : members) {
      require(member->getName().empty() || names.insert(member->getName().view()).second,
              "has two members named '" + std::string(member->getName().view()) + "'");
    }
  }

  bool require(bool holds, const std::string& otherwise) {
    if (!holds) {
      problems.push_back(describe(*current_) + " " + otherwise);
    }
    return holds;
  }

  std::unordered_set<const VornObject*> known_;
  VornObject* current_ = nullptr;
};

}  // namespace

std::vector<std::string> verifyModel(VornStoreModel& model) {
  Collector collector;
  model.depthTraversal(collector, nullptr);
  Verifier verifier(std::move(collector.objects));
  model.depthTraversal(verifier, nullptr);
  return std::move(verifier.problems);
}
