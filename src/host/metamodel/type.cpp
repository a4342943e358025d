#include "host/metamodel/type.h"

#include "host/metamodel/store_model.h"

void VornType::addModel(VornModel* model) {
  model->addType(this);
}

void VornType::visitLinks(VornLinkVisitor& visitor) {
  VornNamespaceElement::visitLinks(visitor);
  visitor.visitReferences(featureCollection);
}

void VornConcreteType::visitLinks(VornLinkVisitor& visitor) {
  VornType::visitLinks(visitor);
  visitor.visitReferences(derivedTypeCollection);
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
  VornLinks::connect(*this, derivedFrom, *type, type->derivedTypeCollection);
}

void VornDerivedType::visitLinks(VornLinkVisitor& visitor) {
  VornConcreteType::visitLinks(visitor);
  visitor.visitReference(derivedFrom);
}

void VornDerivedType::visitTexts(VornTextVisitor& visitor) {
  VornConcreteType::visitTexts(visitor);
  for (VornString* text : {&dataType, &domainText1, &domainText2, &domainText3}) {
    visitor.visit(*text);
  }
}
