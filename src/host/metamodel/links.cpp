#include "host/metamodel/links.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <unordered_set>
#include <utility>

#include "host/base/object_memory.h"

namespace {

// Up to here a scan for a member costs less than a set of them.
constexpr std::uint32_t kShort = 24;

VornObjectMemory& collectionMemory() {
  static thread_local VornObjectMemory memory;
  return memory;
}

}  // namespace

struct VornObjectCollection::Finder {
  std::unordered_set<const VornObject*> members;  // once somebody has asked for one
  bool knowsMembers = false;
  std::unique_ptr<VornMemberIndex> index;  // or null
};

VornMemberIndex::~VornMemberIndex() = default;

void VornLinkOne::clear() {
  VornLinks::disconnect({this, VornLinkPlace::kOnly});
}

VornObjectCollection::VornObjectCollection(unsigned capacityExponent)
    : capacityExponent_(capacityExponent & 0x1FU) {
}

VornObjectCollection::~VornObjectCollection() = default;

VornObjectCollection* VornObjectCollection::make(unsigned capacityExponent) {
  return new (collectionMemory().allocate(bytesFor(capacityExponent))) VornObjectCollection(capacityExponent);
}

void VornObjectCollection::destroy(VornObjectCollection* collection) noexcept {
  const std::size_t bytes = bytesFor(collection->capacityExponent_);
  collection->~VornObjectCollection();
  VornObjectMemory::release(collection, bytes);
}

VornObjectCollection::Finder& VornObjectCollection::finder() const {
  if (!finder_) {
    finder_ = std::make_unique<Finder>();
  }
  return *finder_;
}

bool VornObjectCollection::contains(const VornObject& object) const {
  if (size_ <= kShort) {
    return std::ranges::find(getEntries(), &object, &VornLinkEntry::object) != getEntries().end();
  }
  Finder& found = finder();
  if (!found.knowsMembers) {
    for (const VornLinkEntry& entry : getEntries()) {
      if (entry.object != nullptr) {
        found.members.insert(entry.object);
      }
    }
    found.knowsMembers = true;
  }
  return found.members.contains(&object);
}

VornObject& VornObjectCollection::at(std::size_t index) {
  closeGaps();
  return *entries()[index].object;
}

void VornObjectCollection::setIndex(std::unique_ptr<VornMemberIndex> index) {
  if (index != nullptr || finder_) {
    finder().index = std::move(index);
  }
}

VornMemberIndex* VornObjectCollection::getIndex() const {
  return finder_ ? finder_->index.get() : nullptr;
}

void VornObjectCollection::closeGaps() {
  if (removed_ == 0) {
    return;
  }
  VornLinkEntry* const end = std::remove_if(
      entries(), entries() + size_, [](const VornLinkEntry& entry) { return entry.object == nullptr; });
  size_ = static_cast<std::uint32_t>(end - entries());
  removed_ = 0;
  for (std::uint32_t slot = 0; slot < size_; ++slot) {
    VornLinks::at(entries()[slot].twin).twin.slot = slot;
  }
}

void VornLinkMany::clear() {
  // From the end, so that no gaps remain.
  while (count() > 0) {
    VornLinks::disconnect({this, collection_->size_ - 1});
  }
}

void VornLinkMany::makeRoom() {
  if (collection_ == nullptr) {
    collection_ = VornObjectCollection::make(0);  // most that hold anything hold one
  } else if (collection_->size_ < collection_->capacity()) {
    return;
  } else if (collection_->removed_ > collection_->size_ / 2) {
    collection_->closeGaps();
  } else {
    grow();
  }
}

void VornLinkMany::grow() {
  if (collection_->size_ == VornObjectCollection::kMost) {
    throw std::length_error("an object with more than 2^27 links");
  }
  const unsigned exponent = collection_->capacityExponent_;
  if (collectionMemory().extend(collection_, VornObjectCollection::bytesFor(exponent),
                                VornObjectCollection::bytesFor(exponent + 1))) {
    collection_->capacityExponent_ = (exponent + 1) & 0x1FU;
    return;
  }
  VornObjectCollection* const larger = VornObjectCollection::make(exponent + 1);
  larger->size_ = collection_->size_;
  larger->removed_ = collection_->removed_;
  larger->finder_ = std::move(collection_->finder_);
  std::uninitialized_copy_n(collection_->entries(), collection_->size_, larger->entries());
  VornObjectCollection::destroy(std::exchange(collection_, larger));
}

void VornLinks::disconnect(VornLinkPlace place) {
  const VornLinkEntry entry = at(place);
  if (entry.object != nullptr) {
    drop(entry.twin);
    drop(place);
  }
}

bool VornLinks::areConnected(const VornObject& /*a*/, const VornLinkOne& endOfA, const VornObject& b,
                             const VornLinkOne& endOfB) {
  return endOfA.entry_.object == &b && endOfA.entry_.twin.end == &endOfB;
}

bool VornLinks::areConnected(const VornObject& a, const VornLinkMany& endOfA, const VornObject& /*b*/,
                             const VornLinkOne& endOfB) {
  return endOfB.entry_.object == &a && endOfB.entry_.twin.end == &endOfA;
}

bool VornLinks::areConnected(const VornObject& a, const VornLinkOne& endOfA, const VornObject& b,
                             const VornLinkMany& endOfB) {
  return areConnected(b, endOfB, a, endOfA);
}

bool VornLinks::areConnected(const VornObject& a, const VornLinkMany& endOfA, const VornObject& b,
                             const VornLinkMany& endOfB) {
  return endOfA.count() < endOfB.count() ? endOfA.contains(b) : endOfB.contains(a);
}

VornLinkPlace VornLinks::prepare(VornLinkOne& end) {
  end.clear();
  return {&end, VornLinkPlace::kOnly};
}

VornLinkPlace VornLinks::prepare(VornLinkMany& end) {
  end.makeRoom();
  return {&end, end.collection_->size_};
}

void VornLinks::enterBoth(VornObject& a, VornLinkPlace inA, VornObject& b, VornLinkPlace inB) {
  try {
    remember(inA, b);
    remember(inB, a);
  } catch (...) {
    forget(inA, b);
    forget(inB, a);
    throw;
  }
  enter(inA, {&b, inB});
  enter(inB, {&a, inA});
}

void VornLinks::enter(VornLinkPlace place, const VornLinkEntry& entry) noexcept {
  if (place.slot == VornLinkPlace::kOnly) {
    static_cast<VornLinkOne*>(place.end)->entry_ = entry;
  } else {
    VornObjectCollection& collection = *static_cast<VornLinkMany*>(place.end)->collection_;
    new (collection.entries() + collection.size_++) VornLinkEntry(entry);  // there is room
  }
}

void VornLinks::drop(VornLinkPlace place) noexcept {
  const VornObject* object = std::exchange(at(place), VornLinkEntry{}).object;
  if (place.slot == VornLinkPlace::kOnly) {
    return;
  }
  forget(place, *object);
  VornObjectCollection& collection = *static_cast<VornLinkMany*>(place.end)->collection_;
  ++collection.removed_;
  while (collection.size_ > 0 && collection.entries()[collection.size_ - 1].object == nullptr) {
    --collection.size_;
    --collection.removed_;
  }
}

void VornLinks::remember(VornLinkPlace place, const VornObject& object) {
  if (auto* finder = finderAt(place)) {
    if (finder->knowsMembers) {
      finder->members.insert(&object);
    }
    if (finder->index) {
      finder->index->add(object);
    }
  }
}

void VornLinks::forget(VornLinkPlace place, const VornObject& object) noexcept {
  if (auto* finder = finderAt(place)) {
    finder->members.erase(&object);
    if (finder->index) {
      finder->index->remove(object);
    }
  }
}

VornObjectCollection::Finder* VornLinks::finderAt(VornLinkPlace place) noexcept {
  return place.slot == VornLinkPlace::kOnly
             ? nullptr
             : static_cast<VornLinkMany*>(place.end)->collection_->finder_.get();
}
