#include "host/metamodel/classifier.h"

#include "host/metamodel/relationship.h"

bool VornClassifier::addFeatureUniqueName(VornFeature* feature, char separator) {
  if (feature->getOwner() == this) {
    return false;
  }
  if (VornString name = featureCollection.makeUnique(feature->getName(), separator);
      name != feature->getName()) {
    feature->setName(name);
  }
  return featureCollection.add(*this, *feature);
}

void VornClassifier::visitLinks(VornLinkVisitor& visitor) {
  VornModelElement::visitLinks(visitor);
  visitor.visitOwned(featureCollection);
  visitor.visitReferences(readingViewCollection);
}

void VornClass::addPrimaryCandidateKey(VornCandidateKey* key) {
  VornLinks::connect(*this, primaryCandidateKey, *key, key->primaryOf);
}

void VornClass::visitLinks(VornLinkVisitor& visitor) {
  VornClassifier::visitLinks(visitor);
  visitor.visitOwned(keyCollection);
  visitor.visitOwned(indexCollection);
  visitor.visitReference(primaryCandidateKey);
  visitor.visitReferences(associationRoleCollection);
  visitor.visitReferences(generalizationRoleCollection);
}

void VornSQLViewEntity::addSourceElement(VornClassifier* element) {
  VornLinks::connect(*this, sourceElementCollection, *element, element->readingViewCollection);
}

void VornSQLViewEntity::visitLinks(VornLinkVisitor& visitor) {
  VornClassifier::visitLinks(visitor);
  visitor.visitReferences(sourceElementCollection);
}

void VornSQLViewEntity::visitTexts(VornTextVisitor& visitor) {
  VornClassifier::visitTexts(visitor);
  visitor.visit(viewStatement);
}
