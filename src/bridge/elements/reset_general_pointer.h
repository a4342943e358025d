// VornResetGeneralPointer: parts the objects of a model from what they were read from.
#pragma once

#include "host/metamodel/traversal.h"

namespace silrdm {

// Destroys the parsed element of every object it visits and clears the object's general pointer.
class VornResetGeneralPointer final : public VornTraversalOperation {
 public:
  void process(VornObject& object, void* user) override;
};

}  // namespace silrdm
