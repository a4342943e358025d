#include "bridge/reset_general_pointer.h"

#include <cstdint>

#include "elements/parsed_elements.h"

namespace silrdm {

void VornResetGeneralPointer::process(VornObject& object, void* /*user*/) {
  // A host marks objects of its own with the value 1, behind which there is nothing.
  constexpr std::uintptr_t kHostMark = 1;
  if (reinterpret_cast<std::uintptr_t>(object.generalPointer) != kHostMark) {
    delete elementOf(object);
  }
  object.generalPointer = nullptr;
}

}  // namespace silrdm
