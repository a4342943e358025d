#include "host/services/multiplicity.h"

namespace {

VornString toText(std::int32_t bound) {
  return bound == MANY ? VornString("*") : VornString(bound);
}

}  // namespace

VornString buildMultiplicity(std::int32_t minimum, std::int32_t maximum) {
  return minimum == maximum ? toText(minimum) : toText(minimum) + ".." + toText(maximum);
}
