// Classifiers: tables (classes) and SQL views.
#pragma once

#include "host/metamodel/casting.h"
#include "host/metamodel/enumerations.h"
#include "host/metamodel/feature.h"
#include "host/metamodel/key.h"

class VornAssociationRole;
class VornGeneralizationRole;
class VornSQLViewEntity;

class VornClassifier : public VornLinked<VornClassifier, VornModelElement> {
 public:
  // The columns in the order they were added.
  VornOwned<VornFeature> featureCollection;
  // The views whose statement reads this table or view.
  VornMany<VornSQLViewEntity> readingViewCollection;
  static constexpr std::tuple kEnds = {&VornClassifier::featureCollection,
                                       &VornClassifier::readingViewCollection};

  // Adopts the feature and renames it if another of the classifier has its name: see
  // VornNameIndex::makeUnique. Returns false, and changes nothing, if the feature is in this classifier
  // already.
  bool addFeatureUniqueName(VornFeature* feature, char separator);
  // Adds a new feature.
  void addFeatureUniqueName(std::unique_ptr<VornFeature> feature, char separator);
};

class VornClass final : public VornLinked<VornClass, VornClassifier> {
 public:
  VornClassCategoryType::Value categoryType = VornClassCategoryType::unspecified;
  bool classFlag = false;
  VornOwned<VornKey> keyCollection;
  VornOwned<VornIndex> indexCollection;
  VornOne<VornCandidateKey> primaryCandidateKey;  // one of the keys above, or null
  VornMany<VornAssociationRole> associationRoleCollection;
  VornMany<VornGeneralizationRole> generalizationRoleCollection;
  static constexpr std::tuple kEnds = {&VornClass::keyCollection, &VornClass::indexCollection,
                                       &VornClass::primaryCandidateKey, &VornClass::associationRoleCollection,
                                       &VornClass::generalizationRoleCollection};

  static constexpr VornElementType kElementType = VornElementType::classType;
  VornElementType getElementType() const override { return kElementType; }
  template <class Key>
  Key& addKey(std::unique_ptr<Key> key) {
    return keyCollection.add(*this, std::move(key));
  }
  VornIndex& addIndex(std::unique_ptr<VornIndex> index) {
    return indexCollection.add(*this, std::move(index));
  }
  // These adopt what was made before and is held elsewhere until now.
  void addKey(VornKey* key) { keyCollection.adopt(*this, *key); }
  void addIndex(VornIndex* index) { indexCollection.adopt(*this, *index); }
  // Makes `key`, which the class has, its primary key in place of any before.
  void addPrimaryCandidateKey(VornCandidateKey* key);

  std::size_t getAttributeCount() const { return featureCollection.count(); }
  // The column number `index`, counted from 0, in the order they were added; `index` is below the count.
  VornAttribute* getAttribute(std::size_t index) const {
    return cast<VornAttribute>(featureCollection[index]);
  }
};

class VornSQLViewEntity final : public VornLinked<VornSQLViewEntity, VornClassifier> {
 public:
  VornString viewStatement;
  VornViewStatementType::Value viewStatementType = VornViewStatementType::unspecified;
  // The tables and views that the statement reads.
  VornMany<VornClassifier> sourceElementCollection;
  static constexpr std::tuple kEnds = {&VornSQLViewEntity::sourceElementCollection};

  static constexpr VornElementType kElementType = VornElementType::sqlViewEntity;
  VornElementType getElementType() const override { return kElementType; }
  void addSourceElement(VornClassifier* element);
  void visitTexts(VornTextVisitor& visitor) override;
};
