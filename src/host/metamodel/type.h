// The types of columns: base types, and types derived from others.
#pragma once

#include <cstdint>

#include "host/metamodel/element.h"

class VornDerivedType;
class VornFeature;
class VornModel;

class VornType : public VornLinked<VornType, VornNamespaceElement> {
 public:
  // The features of this type.
  VornMany<VornFeature> featureCollection;
  static constexpr std::tuple kEnds = {&VornType::featureCollection};

  // Puts the type into the model, which owns it from then on.
  void addModel(VornModel* model);
};

class VornConcreteType : public VornLinked<VornConcreteType, VornType> {
 public:
  // The types derived from this one.
  VornMany<VornDerivedType> derivedTypeCollection;
  static constexpr std::tuple kEnds = {&VornConcreteType::derivedTypeCollection};
};

// A type that derives from nothing; its name says all.
class VornBaseType final : public VornConcreteType {
 public:
  static constexpr VornElementType kElementType = VornElementType::baseType;
  VornElementType getElementType() const override { return kElementType; }
};

class VornDerivedType final : public VornLinked<VornDerivedType, VornConcreteType> {
 public:
  VornString dataType;  // the host's name of the data type
  std::int32_t length = 0;
  std::int32_t scale = 0;
  VornString domainText1;
  VornString domainText2;
  VornString domainText3;
  bool userDomain = false;
  VornOne<VornConcreteType> derivedFrom;  // null while it derives from nothing
  static constexpr std::tuple kEnds = {&VornDerivedType::derivedFrom};

  VornDerivedType() = default;
  // Copies name, physical name, description and the members above but `derivedFrom`: no link, no general
  // pointer.
  VornDerivedType(const VornDerivedType& other);

  static constexpr VornElementType kElementType = VornElementType::derivedType;
  VornElementType getElementType() const override { return kElementType; }
  virtual const VornString& getDataType() const { return dataType; }
  virtual std::int32_t getLength() const { return length; }
  virtual std::int32_t getScale() const { return scale; }
  // Derives this type from `type` in place of any before.
  void addDerivedFromConcreteType(VornConcreteType* type);
  void visitTexts(VornTextVisitor& visitor) override;
};
