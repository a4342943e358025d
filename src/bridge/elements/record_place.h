// RecordPlace: where a record is in the export.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace silrdm {

// Sections and records count from 1; 0 means none.
struct RecordPlace {
  RecordPlace() = default;
  RecordPlace(int sectionNumber, std::size_t recordNumber, std::size_t firstByte)
      : section(static_cast<std::int8_t>(sectionNumber)),
        record(recordNumber & ((std::uint64_t{1} << 56) - 1)),
        offset(firstByte) {}

  // Packed, because every element has one.
  int section : 8 = 0;
  std::uint64_t record : 56 = 0;  // within the section, empty ones included
  std::size_t offset = 0;         // of its first byte
};
static_assert(sizeof(RecordPlace) == 2 * sizeof(std::uint64_t));

// An export has this many sections, in a fixed order.
inline constexpr std::size_t kSectionCount = 68;

// Record counts, indexed by section number; index 0 is unused.
using CountBySection = std::array<std::size_t, kSectionCount + 1>;

}  // namespace silrdm
