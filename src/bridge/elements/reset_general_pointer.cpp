#include "bridge/elements/reset_general_pointer.h"

#include "bridge/elements/parsed_elements.h"

namespace silrdm {

void VornResetGeneralPointer::process(VornObject& object, void* /*user*/) {
  takeElement(object);
}

}  // namespace silrdm
