// Namespaces, packages and diagrams: where a model's elements stand and where they are shown.
#pragma once

#include "host/metamodel/element.h"

class VornNamespace : public VornNamespaceElement {
 public:
  // The elements in the order they were added; elements of all kinds share the namespace's names.
  VornOwned<VornNamespaceElement> elementCollection;

  // Takes the element, renamed where its name is taken: see VornNameIndex::makeUnique. False, and nothing
  // changes, when the element is in this namespace already.
  bool addNamespaceElementUniqueName(VornNamespaceElement* element, char separator);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornPackage : public VornNamespace {
 public:
  // Elements of other packages that this one imports.
  VornMany<VornNamespaceElement> importedElementCollection;

  // Imports the element, which stays in its own package; once is enough.
  void addImportedNamespaceElement(VornNamespaceElement* element);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornDesignPackage final : public VornPackage {
 public:
  VornOwned<VornDiagram> diagramCollection;

  VornElementType getElementType() const override { return VornElementType::designPackage; }
  // Takes the diagram.
  void addDiagram(VornDiagram* diagram);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornDataPackage : public VornPackage {};

class VornDatabaseSchema final : public VornDataPackage {
 public:
  VornElementType getElementType() const override { return VornElementType::databaseSchema; }
};

class VornDiagram : public VornModelObject {
 public:
  VornMany<VornModelElement> modelElementCollection;

  // Shows the element, which its package owns; once is enough.
  void addModelElement(VornModelElement* element);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornClassDiagram final : public VornDiagram {
 public:
  VornElementType getElementType() const override { return VornElementType::classDiagram; }
};
