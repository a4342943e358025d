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

const char* identifierOf(const SILRDMElement& element) {
  return element.identifier.c_str();
}

const char* identifierOfObject(const void* object) {
  return identifierOf(*elementOf(*static_cast<const Vorn_Object*>(object)));
}

const char* identifierOfElement(const void* element) {
  return identifierOf(*static_cast<const SILRDMElement*>(element));
}

}  // namespace

int SILPtrTree::compare2Object(const void* first, const void* second) const {
  return compareTexts(identifierOfObject(first), identifierOfObject(second));
}

int SILPtrTree::compare2Key(const void* object, const void* key) const {
  return compareTexts(identifierOfObject(object), static_cast<const char*>(key));
}

std::uint64_t SILPtrTree::rankObject(const void* object) const {
  return rankText(identifierOfObject(object));
}

std::uint64_t SILPtrTree::rankKey(const void* key) const {
  return rankText(static_cast<const char*>(key));
}

int SILIntPtrTree::compare2Object(const void* first, const void* second) const {
  return compareTexts(identifierOfElement(first), identifierOfElement(second));
}

int SILIntPtrTree::compare2Key(const void* element, const void* key) const {
  return compareTexts(identifierOfElement(element), static_cast<const char*>(key));
}

std::uint64_t SILIntPtrTree::rankObject(const void* element) const {
  return rankText(identifierOfElement(element));
}

std::uint64_t SILIntPtrTree::rankKey(const void* key) const {
  return rankText(static_cast<const char*>(key));
}

}  // namespace silrdm
