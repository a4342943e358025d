// The types of columns: base types, and types derived from others.
#pragma once

#include <cstdint>

#include "host/metamodel/element.h"

class VornDerivedType;
class VornFeature;
class VornModel;

class VornType : public VornNamespaceElement {
 public:
  // The features of this type.
  VornMany<VornFeature> featureCollection;

  // Puts the type into the model, which owns it from then on.
  void addModel(VornModel* model);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornConcreteType : public VornType {
 public:
  // The types derived from this one.
  VornMany<VornDerivedType> derivedTypeCollection;

  void visitLinks(VornLinkVisitor& visitor) override;
};

// A type that derives from nothing; its name says all.
class VornBaseType final : public VornConcreteType {
 public:
  VornElementType getElementType() const override { return VornElementType::baseType; }
};

class VornDerivedType final : public VornConcreteType {
 public:
  VornString dataType;  // the host's name of the data type
  std::int32_t length = 0;
  std::int32_t scale = 0;
  VornString domainText1;
  VornString domainText2;
  VornString domainText3;
  bool userDomain = false;
  VornOne<VornConcreteType> derivedFrom;  // null while it derives from nothing

  VornDerivedType() = default;
  // Copies name, physical name, description and the members above but `derivedFrom`: no link, no general
  // pointer.
  VornDerivedType(const VornDerivedType& other);

  VornElementType getElementType() const override { return VornElementType::derivedType; }
  virtual const VornString& getDataType() const { return dataType; }
  virtual std::int32_t getLength() const { return length; }
  virtual std::int32_t getScale() const { return scale; }
  // Derives this type from `type` in place of any before.
  void addDerivedFromConcreteType(VornConcreteType* type);

  void visitLinks(VornLinkVisitor& visitor) override;
  void visitTexts(VornTextVisitor& visitor) override;
};
