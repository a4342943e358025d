// VornTraversalOperation: something to be done to every object of a model.
#pragma once

#include "host/metamodel/object.h"

class VornTraversalOperation {
 public:
  VornTraversalOperation() = default;
  VornTraversalOperation(const VornTraversalOperation&) = delete;
  VornTraversalOperation& operator=(const VornTraversalOperation&) = delete;
  virtual ~VornTraversalOperation();

  // Visits `object`, then all it owns in the model's order. `process` may change texts and members of the
  // object, not what owns what.
  virtual void run(VornObject& object, void* user);

  // Called before `process`. May set another `user` pointer for the visit of the object and of what it owns.
  // Returning false skips both.
  virtual bool pre_process(VornObject& object, void*& user);

  // The visit of one object.
  virtual void process(VornObject& object, void* user) = 0;
};
