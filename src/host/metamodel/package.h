// Namespaces, packages and diagrams: what contains a model's elements, and what shows them.
#pragma once

#include "host/metamodel/element.h"

class VornNamespace : public VornLinked<VornNamespace, VornNamespaceElement> {
 public:
  // The elements in the order they were added; elements of all kinds share the namespace's names.
  VornOwned<VornNamespaceElement> elementCollection;
  static constexpr std::tuple kEnds = {&VornNamespace::elementCollection};

  // Adopts the element and renames it if its name is taken: see VornNameIndex::makeUnique. Returns false, and
  // changes nothing, if the element is in this namespace already.
  bool addNamespaceElementUniqueName(VornNamespaceElement* element, char separator);
};

class VornPackage : public VornLinked<VornPackage, VornNamespace> {
 public:
  // Elements of other packages that this one imports.
  VornMany<VornNamespaceElement> importedElementCollection;
  static constexpr std::tuple kEnds = {&VornPackage::importedElementCollection};

  // Imports the element, which stays in its own package; once is enough.
  void addImportedNamespaceElement(VornNamespaceElement* element);
};

class VornDesignPackage final : public VornLinked<VornDesignPackage, VornPackage> {
 public:
  VornOwned<VornDiagram> diagramCollection;
  static constexpr std::tuple kEnds = {&VornDesignPackage::diagramCollection};

  static constexpr VornElementType kElementType = VornElementType::designPackage;
  VornElementType getElementType() const override { return kElementType; }
  VornDiagram& addDiagram(std::unique_ptr<VornDiagram> diagram);
};

class VornDataPackage : public VornPackage {};

class VornDatabaseSchema final : public VornDataPackage {
 public:
  static constexpr VornElementType kElementType = VornElementType::databaseSchema;
  VornElementType getElementType() const override { return kElementType; }
};

class VornDiagram : public VornLinked<VornDiagram, VornModelObject> {
 public:
  VornMany<VornModelElement> modelElementCollection;
  static constexpr std::tuple kEnds = {&VornDiagram::modelElementCollection};

  // Shows the element, which its package owns; once is enough.
  void addModelElement(VornModelElement* element);
};

class VornClassDiagram final : public VornDiagram {
 public:
  static constexpr VornElementType kElementType = VornElementType::classDiagram;
  VornElementType getElementType() const override { return kElementType; }
};
