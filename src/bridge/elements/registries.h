// The registries: what the loaders made, in the order of identifiers, for the passes to find again.
//
// A registry is ordered and searched by identifier texts, byte by byte, each byte taken as a number without
// sign. Records with one identifier are all kept; the first of them is the one found. A registry owns its
// items until the model does, and destroys those that never came to it.
#pragma once

#include "bridge/elements/parsed_elements.h"
#include "host/base/containers.h"

class VornAssociation;
class VornAssociationRole;
class VornAttribute;
class VornClass;
class VornDatabaseSchema;
class VornDerivedType;
class VornGeneralization;
class VornKey;
class VornSQLViewEntity;

namespace silrdm {

// Holds host objects, ordered by the identifiers of the elements that hang on them. Once the elements are
// gone (see VornResetGeneralPointer) it can only be walked, if it was sorted before.
class SILPtrTree : public VornRBTree {
 private:
  int compare2Object(const void* first, const void* second) const override;
  int compare2Key(const void* object, const void* key) const override;
  std::uint64_t rankObject(const void* object) const override;
  std::uint64_t rankKey(const void* key) const override;
};

// Holds elements, ordered by their own identifiers.
class SILIntPtrTree : public VornRBTree {
 private:
  int compare2Object(const void* first, const void* second) const override;
  int compare2Key(const void* element, const void* key) const override;
  std::uint64_t rankObject(const void* element) const override;
  std::uint64_t rankKey(const void* key) const override;
};

// A registry of one kind of item. `Stored` is what the tree compares: the items' common base.
template <class Item, class Stored, class Tree, class Owner>
class SILRegistry : public Tree {
 public:
  // Walks the items in ascending order.
  class Iterator : public VornRBTree::Iterator {
   public:
    explicit Iterator(SILRegistry& registry) : VornRBTree::Iterator(registry, true) {}
    Item* get() const { return itemOf(VornRBTree::Iterator::get()); }
    Item* operator*() const { return get(); }
    Iterator& operator++() {
      next();
      return *this;
    }
    bool operator==(std::default_sentinel_t /*end*/) const { return get() == nullptr; }
  };
  Iterator begin() { return Iterator(*this); }
  std::default_sentinel_t end() const { return {}; }

  SILRegistry() = default;
  ~SILRegistry() override {
    this->forEach([](void* stored) {
      Item* const item = itemOf(stored);
      if (!isInModel(*item)) {
        Owner(item).reset();
      }
    });
  }

  void add(Owner item) {
    Tree::add(static_cast<Stored*>(item.get()), false, nullptr);
    item.release();
  }
  // Enters an item that is in the model already.
  void enter(Item& item) { Tree::add(static_cast<Stored*>(&item), false, nullptr); }

  // The first item with that identifier, or null. `place`, where given, is then its place.
  Item* findFirst(const VornString& identifier, Iterator* place = nullptr) {
    return itemOf(Tree::findFirst(identifier.c_str(), place));
  }

  // Takes out the item at `place`, which moves to the next one. The item is the caller's, in the model or
  // not.
  Owner take(Iterator& place) { return Owner(itemOf(Tree::remove(place))); }

 private:
  static bool isInModel(const SILRDMElement& /*element*/) { return false; }
  static bool isInModel(const VornObject& object) { return object.getOwner() != nullptr; }

  static Item* itemOf(void* stored) { return static_cast<Item*>(static_cast<Stored*>(stored)); }
};

template <class Object>
using SILObjectRegistry = SILRegistry<Object, Vorn_Object, SILPtrTree, Parsed<Object>>;
template <class Element>
using SILElementRegistry = SILRegistry<Element, SILRDMElement, SILIntPtrTree, std::unique_ptr<Element>>;

}  // namespace silrdm
