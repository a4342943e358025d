#include "host/metamodel/package.h"

#include "host/metamodel/link_pairs.h"

bool VornNamespace::addNamespaceElementUniqueName(VornNamespaceElement* element, char separator) {
  if (element->getOwner() == this) {
    return false;
  }
  if (VornString name = elementCollection.makeUnique(element->getName(), separator);
      name != element->getName()) {
    element->setName(name);
  }
  return elementCollection.adopt(*this, *element);
}

void VornPackage::addImportedNamespaceElement(VornNamespaceElement* element) {
  connect<&VornPackage::importedElementCollection>(*this, *element);
}

VornDiagram& VornDesignPackage::addDiagram(std::unique_ptr<VornDiagram> diagram) {
  return diagramCollection.add(*this, std::move(diagram));
}

void VornDiagram::addModelElement(VornModelElement* element) {
  connect<&VornDiagram::modelElementCollection>(*this, *element);
}
