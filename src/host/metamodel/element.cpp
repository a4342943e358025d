#include "host/metamodel/element.h"

#include <utility>

#include "host/metamodel/name_index.h"
#include "host/metamodel/package.h"

namespace {

// The collection through which an object is owned, or null.
VornObjectCollection* owningCollection(const VornObject& object) {
  const VornLinkEntry& owner = object.ownerEnd().getEntry();
  return owner.object == nullptr ? nullptr : static_cast<VornLinkMany*>(owner.twin.end)->getCollection();
}

}  // namespace

void VornNote::visitTexts(VornTextVisitor& visitor) {
  visitor.visit(noteText);
}

void VornElement::visitLinks(VornLinkVisitor& visitor) {
  VornObject::visitLinks(visitor);
  visitor.visitOwned(noteCollection);
}

// The owner's index of names must let go of the name while it is still there.
VornModelObject::~VornModelObject() {
  ownerEnd().clear();
}

void VornModelObject::setName(const VornString& name) {
  const VornObjectCollection* siblings = owningCollection(*this);
  VornNameIndex* names = siblings == nullptr ? nullptr : siblings->namesIfKept();
  if (names != nullptr) {
    names->remove(*this);
  }
  name_ = name;
  if (names != nullptr) {
    names->add(*this);
  }
}

void VornModelObject::addSynonym(VornSynonym* synonym) {
  synonymCollection.add(*this, *synonym);
}

void VornModelObject::visitLinks(VornLinkVisitor& visitor) {
  VornElement::visitLinks(visitor);
  visitor.visitOwned(synonymCollection);
}

void VornModelObject::visitName(VornTextVisitor& visitor) {
  VornObjectCollection* siblings = owningCollection(*this);
  if (siblings == nullptr || siblings->namesIfKept() == nullptr) {
    visitor.visit(name_);
    return;
  }
  VornString name = name_;
  visitor.visit(name);
  if (name != name_) {
    // Who visits texts changes those of a whole model: to keep the names up one by one would cost more.
    siblings->dropNames();
    name_ = std::move(name);
  }
}

void VornModelObject::visitTexts(VornTextVisitor& visitor) {
  VornElement::visitTexts(visitor);
  visitName(visitor);
  visitor.visit(physicalName);
  visitor.visit(description);
}

void VornNamespaceElement::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReferences(importingPackageCollection);
}

void VornModelElement::visitLinks(VornLinkVisitor& visitor) {
  VornNamespaceElement::visitLinks(visitor);
  visitor.visitReferences(diagramCollection);
}
