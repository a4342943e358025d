#include "bridge/elements/registries.h"

#include <algorithm>
#include <cstring>

namespace silrdm {

namespace {

// Returns -1, 0 or 1; bytes compare as unsigned numbers.
int compareTexts(const char* first, const char* second) {
  const int order = std::strcmp(first, second);
  return static_cast<int>(order > 0) - static_cast<int>(order < 0);
}

// Packs the first nine bytes into seven bits each, the first byte most significant. A byte above 127 sets all
// bits from there on. Identifiers of up to eight ASCII characters, which most exports have, are ranked
// completely.
std::uint64_t rankText(const char* text) {
  constexpr unsigned kNotTold = 0x7F;
  std::uint64_t rank = 0;
  unsigned bits = 1;
  for (int place = 0; place < 9; ++place) {
    if (bits != 0 && bits != kNotTold) {
      bits = std::min<unsigned>(static_cast<unsigned char>(*text++), kNotTold);
    }
    rank = rank << 7 | bits;
  }
  return rank << 1 | (bits == 0 ? 0 : 1);
}

}  // namespace

int IdentifierTree::compare2Object(const void* first, const void* second) const {
  return compareTexts(getIdentifier(first), getIdentifier(second));
}

int IdentifierTree::compare2Key(const void* object, const void* key) const {
  return compareTexts(getIdentifier(object), static_cast<const char*>(key));
}

std::uint64_t IdentifierTree::rankObject(const void* object) const {
  return rankText(getIdentifier(object));
}

std::uint64_t IdentifierTree::rankKey(const void* key) const {
  return rankText(static_cast<const char*>(key));
}

const char* SILPtrTree::getIdentifier(const void* stored) const {
  return elementOf(*static_cast<const Vorn_Object*>(stored))->identifier.c_str();
}

const char* SILIntPtrTree::getIdentifier(const void* stored) const {
  return static_cast<const SILRDMElement*>(stored)->identifier.c_str();
}

}  // namespace silrdm
