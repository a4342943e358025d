#include "elements/parsed_elements.h"

#include "host/metamodel/key.h"

namespace silrdm {

SILRDMElement::~SILRDMElement() = default;

namespace {

void destroyIndex(VornKey& key) {
  VornIndex* index = key.index;
  if (index == nullptr) {
    return;
  }
  key.removeIndex();
  for (const VornIndexMember* member : index->indexMemberCollection) {
    delete elementOf(*member);
  }
  delete index;
}

}  // namespace

void destroyWithElement(VornObject* object) {
  delete elementOf(*object);
  if (auto* key = dynamic_cast<VornKey*>(object)) {
    destroyIndex(*key);
  }
  delete object;
}

}  // namespace silrdm
