// The sections of an export: a fixed sequence, in which a section is known by its position alone.
#pragma once

#include <array>

namespace silrdm {

struct Section {
  int position;      // in the file, counted from 1
  const char* name;  // of what it holds; empty for a section that the import passes over
  const char* readerName;
  void (*read)();  // reads exactly this section
};

extern const std::array<Section, 68> kSections;

}  // namespace silrdm
