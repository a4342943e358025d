// The assembly passes in the order in which they run.
#pragma once

#include <array>

namespace silrdm {

class Import;

struct Pass {
  int position;  // in the sequence, counted from 1
  const char* name;
  const char* purpose;
  void (*run)(Import& import);
};

extern const std::array<Pass, 15> kPasses;

}  // namespace silrdm
