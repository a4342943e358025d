#include "support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzTarget& target = getFuzzTarget(VORN_FUZZ_TARGET);
  target.run(Bytes({reinterpret_cast<const char*>(data), size}));
  return 0;
}
