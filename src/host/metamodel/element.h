// The common bases of the metamodel's named objects, and the notes and synonyms they carry.
#pragma once

#include <memory>
#include <tuple>

#include "host/metamodel/linked.h"

class VornDiagram;
class VornPackage;

class VornNote final : public VornObject {
 public:
  VornString noteText;

  static constexpr VornElementType kElementType = VornElementType::note;
  VornElementType getElementType() const override { return kElementType; }
  void visitTexts(VornTextVisitor& visitor) override;
};

class VornElement : public VornLinked<VornElement, VornObject> {
 public:
  VornOwned<VornNote> noteCollection;
  static constexpr std::tuple kEnds = {&VornElement::noteCollection};

  void addNote(std::unique_ptr<VornNote> note) { noteCollection.add(*this, std::move(note)); }
};

class VornSynonym;

class VornModelObject : public VornLinked<VornModelObject, VornElement> {
 public:
  VornOwned<VornSynonym> synonymCollection;
  static constexpr std::tuple kEnds = {&VornModelObject::synonymCollection};
  VornString physicalName;
  VornString description;

  ~VornModelObject() override;

  const VornString& getName() const override { return name_; }
  void setName(const VornString& name) override;
  void setPhysicalName(const VornString& name) { physicalName = name; }
  void addSynonym(std::unique_ptr<VornSynonym> synonym);
  void visitTexts(VornTextVisitor& visitor) override;

 private:
  void visitName(VornTextVisitor& visitor);

  VornString name_;
};

// A model object in a namespace.
class VornNamespaceElement : public VornLinked<VornNamespaceElement, VornModelObject> {
 public:
  // The packages that import the element from its own.
  VornMany<VornPackage> importingPackageCollection;
  static constexpr std::tuple kEnds = {&VornNamespaceElement::importingPackageCollection};
};

// A namespace element that diagrams show.
class VornModelElement : public VornLinked<VornModelElement, VornNamespaceElement> {
 public:
  VornMany<VornDiagram> diagramCollection;
  static constexpr std::tuple kEnds = {&VornModelElement::diagramCollection};
};

// Another name of the object that owns it.
class VornSynonym final : public VornNamespaceElement {
 public:
  static constexpr VornElementType kElementType = VornElementType::synonym;
  VornElementType getElementType() const override { return kElementType; }
};
