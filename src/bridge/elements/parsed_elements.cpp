#include "bridge/elements/parsed_elements.h"

#include "host/base/object_memory.h"
#include "host/metamodel/casting.h"
#include "host/metamodel/key.h"

namespace silrdm {

SILRDMElement::~SILRDMElement() = default;

void* SILRDMElement::operator new(std::size_t size) {  // NOLINT(*new-delete-overloads,cert-dcl54-cpp): sized
  static thread_local VornObjectMemory memory;
  return memory.allocate(size);
}

void SILRDMElement::operator delete(void* memory, std::size_t size) noexcept {
  VornObjectMemory::release(memory, size);
}

namespace {

void destroyIndex(VornKey& key) {
  VornIndex* index = key.index;
  if (index == nullptr) {
    return;
  }
  key.removeIndex();
  for (VornIndexMember* member : index->indexMemberCollection) {
    takeElement(*member);
  }
  delete index;
}

}  // namespace

void hang(std::unique_ptr<VornIndex> index, VornKey& key) {
  index->addKey(&key);
  index.release();
}

void ElementDestroyer::operator()(VornObject* object) const {
  takeElement(*object);
  if (auto* key = dyn_cast<VornKey>(object)) {
    destroyIndex(*key);
  }
  delete object;
}

}  // namespace silrdm
