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

  VornElementType getElementType() const override { return VornElementType::metadataOrigin; }
};

// A package that describes a system, such as a database of one vendor and version.
class VornSystemPackage : public VornPackage {
 public:
  // The data store by its name ("ORACLE") and version ("8.1.0"); both empty while it is not known.
  VornString dataStoreName;
  VornString dataStoreVersion;

  void visitTexts(VornTextVisitor& visitor) override;
};

class VornModel : public VornSystemPackage {
 public:
  VornOwned<VornType> typeCollection;
  VornOwned<VornMetadataOrigin> metadataOriginCollection;

  // These take what they are given; what the model has already stays where it is.
  void addType(VornType* type) { typeCollection.add(*this, *type); }
  void addMetadataOrigin(VornMetadataOrigin* origin) { metadataOriginCollection.add(*this, *origin); }

  // Runs the operation over the model and everything it owns, depth first.
  virtual void depthTraversal(VornTraversalOperation& operation, void* user);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornStoreModel final : public VornModel {
 public:
  VornString dataStoreVersionName;  // "ORACLE 8.x"
  VornOwned<VornDesignPackage> designPackageCollection;
  VornOwned<VornDataPackage> dataPackageCollection;

  VornStoreModel() = default;
  // Destroys everything the model holds.
  ~VornStoreModel() override;

  // From now on models leave what they hold to the end of the process: for programs that end when their
  // import has. Builds that look for memory that was left destroy it all the same.
  static void leaveToProcessEnd();

  VornElementType getElementType() const override { return VornElementType::storeModel; }
  // These take what they are given.
  void addDesignPackage(VornDesignPackage* package) { designPackageCollection.add(*this, *package); }
  void addDataPackage(VornDataPackage* package) { dataPackageCollection.add(*this, *package); }

  // Destroys every object the model holds, in time linear in their number; the model itself stays, empty.
  void recursiveDelete();

  void visitLinks(VornLinkVisitor& visitor) override;
  void visitTexts(VornTextVisitor& visitor) override;
};
