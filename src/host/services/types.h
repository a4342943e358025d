// Making a model's types, and making one of those that are the same.
#pragma once

#include <memory>

#include "host/metamodel/type.h"

class VornModel;

// A new base type of that name, in no model yet.
std::unique_ptr<VornBaseType> createBaseType(const VornString& logicalName);

// Merges derived types that have the same texts, sizes and flags and derive from the same type: features and
// derived types of the later ones move to the first. Considers the types of the model in their order, then
// types outside the model that they derive from. Destroys types that are no longer used, except those with a
// general pointer, which their maker still holds. Linear in the number of types and uses.
void factorizeTypes(VornModel& model);
