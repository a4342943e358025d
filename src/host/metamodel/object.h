// The roots of the metamodel: what every object of a model is and has.
#pragma once

#include "host/base/text.h"
#include "host/metamodel/element_type.h"
#include "host/metamodel/links.h"
#include "host/metamodel/name_index.h"

class Vorn_Object {
 public:
  // For the bridge that creates the object: it keeps its parsed element here. Not owned by the object; null
  // at first.
  void* generalPointer = nullptr;

  Vorn_Object(const Vorn_Object&) = delete;
  Vorn_Object& operator=(const Vorn_Object&) = delete;
  virtual ~Vorn_Object();

  // Objects are made by the hundred thousand: see VornObjectMemory.
  static void* operator new(std::size_t size);  // NOLINT(*new-delete-overloads,cert-dcl54-cpp): sized delete
  static void* operator new(std::size_t /*size*/, void* place) noexcept { return place; }
  static void operator delete(void* memory, std::size_t size) noexcept;

 protected:
  Vorn_Object() = default;
};

// Visits every end of an object; see VornObject::visitLinks.
class VornLinkVisitor {
 public:
  virtual ~VornLinkVisitor();
  // An end whose members the object owns.
  virtual void visitOwned(VornLinkMany& members) = 0;
  // An end to objects that somebody else owns.
  virtual void visitReferences(VornLinkMany& members) = 0;
  virtual void visitReference(VornLinkOne& link) = 0;
};

// Is shown every text of an object and may change it; see VornObject::visitTexts.
class VornTextVisitor {
 public:
  virtual ~VornTextVisitor();
  virtual void visit(VornString& text) = 0;
};

// An object of a model. Destroying it takes it out of everything that refers to it and destroys what it owns,
// unless its class says otherwise.
class VornObject : public Vorn_Object {
 public:
  virtual VornElementType getElementType() const = 0;

  // Objects without a name have the empty one and stay without.
  virtual const VornString& getName() const;
  virtual void setName(const VornString& name);

  // The object that destroys this one with itself; null while it has none.
  VornObject* getOwner() const { return owner_.getObject(); }

  // Shows each end of the object once, except its owner end. What the object owns comes in the model's order.
  virtual void visitLinks(VornLinkVisitor& visitor);
  // Shows each text of the object once, but not those of objects that it owns.
  virtual void visitTexts(VornTextVisitor& visitor);

  // The end that holds the link to the owner.
  VornLinkOne& ownerEnd() { return owner_; }
  const VornLinkOne& ownerEnd() const { return owner_; }

 protected:
  VornObject() = default;

 private:
  VornLinkOne owner_;
};

// An end whose members the object owns, but does not destroy: only the tear-down of a whole model does.
template <class T>
class VornHeld : public VornMany<T> {
 public:
  // Makes `owner`, whose end this is, the owner of `member` in place of any before. Returns false if it is
  // already.
  bool adopt(VornObject& owner, T& member) {
    return VornLinks::join(owner, *this, member, member.ownerEnd());
  }
};

// An end whose members the object owns: they are destroyed with it.
template <class T>
class VornOwned : public VornHeld<T> {
 public:
  ~VornOwned() {
    while (this->count() > 0) {
      delete this->getCollection()->getEntries().back().object;
    }
  }

  // Makes `owner`, whose end this is, the owner of a new member, which it returns.
  template <class Member>
  Member& add(VornObject& owner, std::unique_ptr<Member> member) {
    this->adopt(owner, *member);
    return *member.release();
  }

  // The first added of the members of that name, or null.
  T* get(const VornString& name) const { return static_cast<T*>(findNamed(*this, name.view())); }

  // The member of the same name that was added next, or null.
  T* getNext(const T& member) const { return static_cast<T*>(findNextNamesake(*this, member)); }

  // `name`, made different from the names of all members; see VornNameIndex::makeUnique.
  VornString makeUnique(const VornString& name, char separator) const {
    return makeUniqueName(*this, name, separator);
  }
};
