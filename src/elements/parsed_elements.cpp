#include "elements/parsed_elements.h"

namespace silrdm {

SILRDMElement::~SILRDMElement() = default;

void destroyWithElement(VornObject* object) {
  delete elementOf(*object);
  delete object;
}

}  // namespace silrdm
