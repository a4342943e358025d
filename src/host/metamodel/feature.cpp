#include "host/metamodel/feature.h"

#include "host/metamodel/link_pairs.h"

void VornFeature::addType(VornType* newType) {
  connect<&VornFeature::type>(*this, *newType);
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
    addNote(std::move(copy));
  }
  return *this;
}

void VornStructuralFeature::visitTexts(VornTextVisitor& visitor) {
  VornFeature::visitTexts(visitor);
  visitor.visit(attributeText);
}

void VornAttribute::addIndexMember(VornIndexMember* member) {
  connect<&VornAttribute::indexMemberCollection>(*this, *member);
}
