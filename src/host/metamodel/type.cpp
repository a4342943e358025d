#include "host/metamodel/type.h"

#include "host/metamodel/link_pairs.h"

void VornType::addModel(VornModel* model) {
  model->addType(this);
}

VornDerivedType::VornDerivedType(const VornDerivedType& other)
    : dataType(other.dataType),
      length(other.length),
      scale(other.scale),
      domainText1(other.domainText1),
      domainText2(other.domainText2),
      domainText3(other.domainText3),
      userDomain(other.userDomain) {
  setName(other.getName());
  physicalName = other.physicalName;
  description = other.description;
}

void VornDerivedType::addDerivedFromConcreteType(VornConcreteType* type) {
  connect<&VornDerivedType::derivedFrom>(*this, *type);
}

void VornDerivedType::visitTexts(VornTextVisitor& visitor) {
  VornConcreteType::visitTexts(visitor);
  for (VornString* text : {&dataType, &domainText1, &domainText2, &domainText3}) {
    visitor.visit(*text);
  }
}
