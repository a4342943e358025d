// Making a model's types, and making one of those that are the same.
#pragma once

#include <memory>

#include "host/metamodel/type.h"

class VornModel;

// A new base type of that name, in no model yet.
std::unique_ptr<VornBaseType> createBaseType(const VornString& logicalName);

// Merges the model's derived types that are the same in all texts, sizes and flags and derive from the same
// type: features and derived types of the later ones move to the first. Considered are the types of the model
// in their order and, behind them, the types outside of it that they derive from. A type left without use is
// destroyed, but for one whose general pointer is set: whoever made it still holds it and destroys it. Linear
// in the number of types and uses.
void factorizeTypes(VornModel& model);
