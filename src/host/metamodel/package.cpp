#include "host/metamodel/package.h"

bool VornNamespace::addNamespaceElementUniqueName(VornNamespaceElement* element, char separator) {
  if (element->getOwner() == this) {
    return false;
  }
  if (VornString name = elementCollection.makeUnique(element->getName(), separator);
      name != element->getName()) {
    element->setName(name);
  }
  return elementCollection.add(*this, *element);
}

void VornNamespace::visitLinks(VornLinkVisitor& visitor) {
  VornNamespaceElement::visitLinks(visitor);
  visitor.visitOwned(elementCollection);
}

void VornPackage::addImportedNamespaceElement(VornNamespaceElement* element) {
  VornLinks::connect(*this, importedElementCollection, *element, element->importingPackageCollection);
}

void VornPackage::visitLinks(VornLinkVisitor& visitor) {
  VornNamespace::visitLinks(visitor);
  visitor.visitReferences(importedElementCollection);
}

void VornDesignPackage::addDiagram(VornDiagram* diagram) {
  diagramCollection.add(*this, *diagram);
}

void VornDesignPackage::visitLinks(VornLinkVisitor& visitor) {
  VornPackage::visitLinks(visitor);
  visitor.visitOwned(diagramCollection);
}

void VornDiagram::addModelElement(VornModelElement* element) {
  VornLinks::connect(*this, modelElementCollection, *element, element->diagramCollection);
}

void VornDiagram::visitLinks(VornLinkVisitor& visitor) {
  VornModelObject::visitLinks(visitor);
  visitor.visitReferences(modelElementCollection);
}
