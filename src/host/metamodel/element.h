// The common bases of the metamodel's named objects, and the notes and synonyms they carry.
#pragma once

#include "host/metamodel/object.h"

class VornDiagram;
class VornPackage;

class VornNote final : public VornObject {
 public:
  VornString noteText;

  VornElementType getElementType() const override { return VornElementType::note; }
  void visitTexts(VornTextVisitor& visitor) override;
};

class VornElement : public VornObject {
 public:
  VornOwned<VornNote> noteCollection;

  // Takes the note.
  void addNote(VornNote* note) { noteCollection.add(*this, *note); }

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornSynonym;

class VornModelObject : public VornElement {
 public:
  VornOwned<VornSynonym> synonymCollection;
  VornString physicalName;
  VornString description;

  ~VornModelObject() override;

  const VornString& getName() const override { return name_; }
  void setName(const VornString& name) override;
  void setPhysicalName(const VornString& name) { physicalName = name; }
  // Takes the synonym.
  void addSynonym(VornSynonym* synonym);

  void visitLinks(VornLinkVisitor& visitor) override;
  void visitTexts(VornTextVisitor& visitor) override;

 private:
  void visitName(VornTextVisitor& visitor);

  VornString name_;
};

// A model object that stands in a namespace.
class VornNamespaceElement : public VornModelObject {
 public:
  // The packages that import the element from its own.
  VornMany<VornPackage> importingPackageCollection;

  void visitLinks(VornLinkVisitor& visitor) override;
};

// A namespace element that diagrams show.
class VornModelElement : public VornNamespaceElement {
 public:
  VornMany<VornDiagram> diagramCollection;

  void visitLinks(VornLinkVisitor& visitor) override;
};

// Another name of the object that owns it.
class VornSynonym final : public VornNamespaceElement {
 public:
  VornElementType getElementType() const override { return VornElementType::synonym; }
};
