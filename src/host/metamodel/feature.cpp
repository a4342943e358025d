#include "host/metamodel/feature.h"

#include "host/metamodel/key.h"
#include "host/metamodel/type.h"

void VornFeature::addType(VornType* newType) {
  VornLinks::connect(*this, type, *newType, newType->featureCollection);
}

void VornFeature::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReference(type);
}

VornStructuralFeature& VornStructuralFeature::operator=(const VornStructuralFeature& other) {
  if (this == &other) {
    return *this;
  }
  setName(other.getName());
  physicalName = other.physicalName;
  description = other.description;
  attributeText = other.attributeText;
  optional = other.optional;
  for (const VornNote* note : other.noteCollection) {
    auto copy = std::make_unique<VornNote>();
    copy->noteText = note->noteText;
    addNote(copy.get());
    copy.release();
  }
  return *this;
}

void VornStructuralFeature::visitTexts(VornTextVisitor& visitor) {
  VornFeature::visitTexts(visitor);
  visitor.visit(attributeText);
}

void VornAttribute::addIndexMember(VornIndexMember* member) {
  VornLinks::connect(*this, indexMemberCollection, *member, member->attribute);
}

void VornAttribute::visitLinks(VornLinkVisitor& visitor) {
  VornStructuralFeature::visitLinks(visitor);
  visitor.visitReferences(keyCollection);
  visitor.visitReferences(indexMemberCollection);
  visitor.visitReferences(sourceRoleNameMapCollection);
  visitor.visitReferences(destinationRoleNameMapCollection);
}
