// The store model: the whole that an import builds and the host saves.
#pragma once

#include <cstdint>

#include "host/metamodel/package.h"
#include "host/metamodel/type.h"

class VornTraversalOperation;

// Where a model came from.
class VornMetadataOrigin final : public VornModelObject {
 public:
  VornString formatName;
  std::int32_t originCode = 0;
  VornString sourcePath;  // as the user gave it, in the platform's encoding
  VornString bridge;      // the bridge specification's identifier
  VornString identifier;  // the caller's name for the import
  VornString buildVersion;

  static constexpr VornElementType kElementType = VornElementType::metadataOrigin;
  VornElementType getElementType() const override { return kElementType; }
};

// A package that describes a system, such as a database of one vendor and version.
class VornSystemPackage : public VornPackage {
 public:
  // The data store by its name ("ORACLE") and version ("8.1.0"); both empty while it is not known.
  VornString dataStoreName;
  VornString dataStoreVersion;

  void visitTexts(VornTextVisitor& visitor) override;
};

class VornModel : public VornLinked<VornModel, VornSystemPackage> {
 public:
  VornOwned<VornType> typeCollection;
  VornOwned<VornMetadataOrigin> metadataOriginCollection;
  static constexpr std::tuple kEnds = {&VornModel::typeCollection, &VornModel::metadataOriginCollection};

  template <class Type>
  Type& addType(std::unique_ptr<Type> type) {
    return typeCollection.add(*this, std::move(type));
  }
  // Adopts the type, unless the model has it already.
  void addType(VornType* type) { typeCollection.adopt(*this, *type); }
  void addMetadataOrigin(std::unique_ptr<VornMetadataOrigin> origin) {
    metadataOriginCollection.add(*this, std::move(origin));
  }

  // Runs the operation over the model and everything it owns, depth first.
  virtual void depthTraversal(VornTraversalOperation& operation, void* user);
};

class VornStoreModel final : public VornLinked<VornStoreModel, VornModel> {
 public:
  VornString dataStoreVersionName;  // "ORACLE 8.x"
  VornOwned<VornDesignPackage> designPackageCollection;
  VornOwned<VornDataPackage> dataPackageCollection;
  static constexpr std::tuple kEnds = {&VornStoreModel::designPackageCollection,
                                       &VornStoreModel::dataPackageCollection};

  VornStoreModel() = default;
  // Destroys everything the model holds.
  ~VornStoreModel() override;

  // From now on models leave what they hold to the end of the process: for programs that end when their
  // import has. Builds that look for memory that was left destroy it all the same.
  static void leaveToProcessEnd();

  static constexpr VornElementType kElementType = VornElementType::storeModel;
  VornElementType getElementType() const override { return kElementType; }
  VornDesignPackage& addDesignPackage(std::unique_ptr<VornDesignPackage> package) {
    return designPackageCollection.add(*this, std::move(package));
  }
  template <class Package>
  Package& addDataPackage(std::unique_ptr<Package> package) {
    return dataPackageCollection.add(*this, std::move(package));
  }
  // Adopts the package.
  void addDataPackage(VornDataPackage* package) { dataPackageCollection.adopt(*this, *package); }

  // Destroys every object the model holds, in time linear in their number; the model itself stays, empty.
  void recursiveDelete();
  void visitTexts(VornTextVisitor& visitor) override;
};
