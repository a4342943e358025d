// Multiplicities: how many objects one end of an association can have, as a text.
#pragma once

#include <cstdint>

#include "host/base/text.h"

// The bound that means "many".
inline constexpr std::int32_t MANY = 0x7FFFFFFD;

// "1", "0..1", "2..5", "0..*": the bounds, or the one number when they are the same; "*" for MANY.
VornString buildMultiplicity(std::int32_t minimum, std::int32_t maximum);
