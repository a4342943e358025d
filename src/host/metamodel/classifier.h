// Classifiers: tables (classes) and SQL views.
#pragma once

#include "host/metamodel/enumerations.h"
#include "host/metamodel/feature.h"
#include "host/metamodel/key.h"

class VornAssociationRole;
class VornGeneralizationRole;
class VornSQLViewEntity;

class VornClassifier : public VornModelElement {
 public:
  // The columns in the order they were added.
  VornOwned<VornFeature> featureCollection;
  // The views whose statement reads this table or view.
  VornMany<VornSQLViewEntity> readingViewCollection;

  // Takes the feature, renamed where another of the classifier has its name: see VornNameIndex::makeUnique.
  // False, and nothing changes, when the feature is in this classifier already.
  bool addFeatureUniqueName(VornFeature* feature, char separator);

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornClass final : public VornClassifier {
 public:
  VornClassCategoryType::Value categoryType = VornClassCategoryType::unspecified;
  bool classFlag = false;
  VornOwned<VornKey> keyCollection;
  VornOwned<VornIndex> indexCollection;
  VornOne<VornCandidateKey> primaryCandidateKey;  // one of the keys above, or null
  VornMany<VornAssociationRole> associationRoleCollection;
  VornMany<VornGeneralizationRole> generalizationRoleCollection;

  VornElementType getElementType() const override { return VornElementType::classType; }
  // These take what they are given.
  void addKey(VornKey* key) { keyCollection.add(*this, *key); }
  void addIndex(VornIndex* index) { indexCollection.add(*this, *index); }
  // Makes `key`, which the class has, its primary key in place of any before.
  void addPrimaryCandidateKey(VornCandidateKey* key);

  std::size_t getAttributeCount() const { return featureCollection.count(); }
  // The column number `index`, counted from 0, in the order they were added; `index` is below the count.
  VornAttribute* getAttribute(std::size_t index) const {
    return static_cast<VornAttribute*>(featureCollection[index]);
  }

  void visitLinks(VornLinkVisitor& visitor) override;
};

class VornSQLViewEntity final : public VornClassifier {
 public:
  VornString viewStatement;
  VornViewStatementType::Value viewStatementType = VornViewStatementType::unspecified;
  // The tables and views that the statement reads.
  VornMany<VornClassifier> sourceElementCollection;

  VornElementType getElementType() const override { return VornElementType::sqlViewEntity; }
  void addSourceElement(VornClassifier* element);

  void visitLinks(VornLinkVisitor& visitor) override;
  void visitTexts(VornTextVisitor& visitor) override;
};
