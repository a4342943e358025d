// The sections of an export: a fixed sequence, in which a section is known by its position alone.
#pragma once

#include <array>

#include "bridge/elements/record_place.h"
#include "bridge/reader/record_layout.h"

namespace silrdm {

class Import;

struct Section {
  int position;      // in the file, counted from 1
  const char* name;  // of its records; empty for a skipped section
  const char* readerName;
  void (*read)(Import& import);  // reads exactly this section
  const RecordFields* fields;    // of its records; null for a skipped section
};

extern const std::array<Section, kSectionCount> kSections;

// Returns the name of section `position`.
const char* nameOfSection(int position);

}  // namespace silrdm
