// VornResetGeneralPointer detaches parsed elements from the objects of a model.
#pragma once

#include "host/metamodel/traversal.h"

namespace silrdm {

// Destroys the parsed element of every object it visits and clears the object's general pointer.
class VornResetGeneralPointer final : public VornTraversalOperation {
 public:
  void process(VornObject& object, void* user) override;
};

}  // namespace silrdm
