#include "bridge/elements/record_place.h"

#include <cstdint>

#include "tests/support.h"

namespace silrdm {
namespace {

TEST(RecordPlace, NumbersRecordsBeyondThirtyTwoBits) {
  for (const std::size_t before : {std::size_t{INT32_MAX}, std::size_t{UINT32_MAX}}) {
    RecordPlace place(1, before, 0);
    ++place.record;
    EXPECT_EQ(place.record, before + 1);
  }
}

}  // namespace
}  // namespace silrdm
