#include "host/metamodel/element.h"

#include <utility>

#include "host/metamodel/name_index.h"
#include "host/metamodel/package.h"

void VornNote::visitTexts(VornTextVisitor& visitor) {
  visitor.visit(noteText);
}

// The owner's index of names must let go of the name while it is still there.
VornModelObject::~VornModelObject() {
  ownerEnd().clear();
}

void VornModelObject::setName(const VornString& name) {
  VornNameIndex* names = indexAmongSiblings(*this);
  if (names != nullptr) {
    names->remove(*this);
  }
  name_ = name;
  if (names != nullptr) {
    names->add(*this);
  }
}

void VornModelObject::addSynonym(std::unique_ptr<VornSynonym> synonym) {
  synonymCollection.add(*this, std::move(synonym));
}

void VornModelObject::visitName(VornTextVisitor& visitor) {
  if (indexAmongSiblings(*this) == nullptr) {
    visitor.visit(name_);
    return;
  }
  VornString name = name_;
  visitor.visit(name);
  if (name != name_) {
    // Visitors change the texts of a whole model: updating the index name by name would cost more.
    dropIndexAmongSiblings(*this);
    name_ = std::move(name);
  }
}

void VornModelObject::visitTexts(VornTextVisitor& visitor) {
  VornElement::visitTexts(visitor);
  visitName(visitor);
  visitor.visit(physicalName);
  visitor.visit(description);
}
