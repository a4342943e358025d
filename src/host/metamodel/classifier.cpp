#include "host/metamodel/classifier.h"

#include "host/metamodel/link_pairs.h"

bool VornClassifier::addFeatureUniqueName(VornFeature* feature, char separator) {
  if (feature->getOwner() == this) {
    return false;
  }
  if (VornString name = featureCollection.makeUnique(feature->getName(), separator);
      name != feature->getName()) {
    feature->setName(name);
  }
  return featureCollection.adopt(*this, *feature);
}

void VornClassifier::addFeatureUniqueName(std::unique_ptr<VornFeature> feature, char separator) {
  addFeatureUniqueName(feature.get(), separator);
  feature.release();
}

void VornClass::addPrimaryCandidateKey(VornCandidateKey* key) {
  connect<&VornClass::primaryCandidateKey>(*this, *key);
}

void VornSQLViewEntity::addSourceElement(VornClassifier* element) {
  connect<&VornSQLViewEntity::sourceElementCollection>(*this, *element);
}

void VornSQLViewEntity::visitTexts(VornTextVisitor& visitor) {
  VornClassifier::visitTexts(visitor);
  visitor.visit(viewStatement);
}
