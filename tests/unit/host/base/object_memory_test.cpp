#include "host/base/object_memory.h"

#include <cstring>

#include "tests/support.h"

namespace {

// Objects of all sizes, some too large for a chunk, in many chunks.
TEST(ObjectMemory, GivesEachObjectBytesOfItsOwnThatStayWhenOthersGo) {
  struct Object {
    unsigned char* bytes;
    std::size_t size;
  };
  std::vector<Object> objects;
  {
    VornObjectMemory memory;
    for (std::size_t number = 0; number < 3000; ++number) {
      const std::size_t size = 1 + number * number % 40'000;
      objects.push_back({static_cast<unsigned char*>(memory.allocate(size)), size});
      std::memset(objects.back().bytes, static_cast<int>(number % 251), size);
    }
  }
  const auto release = [&](std::size_t number) {
    const auto [bytes, size] = objects[number];
    EXPECT_EQ(std::count(bytes, bytes + size, number % 251), static_cast<std::ptrdiff_t>(size)) << number;
    VornObjectMemory::release(bytes, size);
  };
  for (std::size_t number = 0; number < objects.size(); number += 2) {
    release(number);
  }
  for (std::size_t number = 1; number < objects.size(); number += 2) {
    release(number);
  }
}

}  // namespace
