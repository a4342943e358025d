// Registries hold what the loaders made, ordered by identifier, for the passes to look up.
//
// Identifiers compare byte by byte, as unsigned numbers. If several records have the same identifier, all are
// kept and a search finds the first. A registry owns its items until the model takes them over, and destroys
// the rest.
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

// Orders what it holds by identifier.
class IdentifierTree : public VornRBTree {
 private:
  virtual const char* getIdentifier(const void* stored) const = 0;

  int compare2Object(const void* first, const void* second) const override;
  int compare2Key(const void* object, const void* key) const override;
  std::uint64_t rankObject(const void* object) const override;
  std::uint64_t rankKey(const void* key) const override;
};

// Host objects, ordered by the identifiers of their elements. After the elements are destroyed (see
// VornResetGeneralPointer) a registry can be walked if it was sorted before, but not searched.
class SILPtrTree : public IdentifierTree {
  const char* getIdentifier(const void* stored) const override;
};

// Elements, ordered by their identifiers.
class SILIntPtrTree : public IdentifierTree {
  const char* getIdentifier(const void* stored) const override;
};

// A registry of one kind of item. `Stored` is the common base class of the items, which the tree compares.
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

  Item& add(Owner item) {
    Tree::add(static_cast<Stored*>(item.get()), false, nullptr);
    return *item.release();
  }

  // Returns the first item with that identifier, or null. Moves `place`, if given, to the item found.
  Item* findFirst(const VornString& identifier, Iterator* place = nullptr) {
    return itemOf(Tree::findFirst(identifier.c_str(), place));
  }

  // Removes the item at `place` and moves `place` to the next one. The caller owns the item, even if the
  // model does, too.
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
