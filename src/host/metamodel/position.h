// The positions of columns in tables and of members in indexes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

// Returns the position after `count` others. It has 16 bits; the largest number is used for all from there
// on.
inline std::int16_t positionBehind(std::size_t count) {
  constexpr std::size_t kLast = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::min(count, kLast));
}
