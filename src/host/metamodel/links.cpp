#include "host/metamodel/links.h"

#include <algorithm>
#include <utility>

#include "host/metamodel/name_index.h"
#include "host/metamodel/object.h"

namespace {

// Up to here a scan for a member costs less than a set of them.
constexpr std::size_t kShort = 16;

// The room a collection starts with: most that hold anything hold one.
constexpr std::size_t kFirstRoom = 1;

}  // namespace

void VornLinkOne::clear() {
  VornLinks::disconnect({this, VornLinkPlace::kOnly});
}

VornObjectCollection::VornObjectCollection() = default;
VornObjectCollection::~VornObjectCollection() = default;

bool VornObjectCollection::contains(const VornObject& object) const {
  if (!members_ && entries_.size() <= kShort) {
    return std::any_of(entries_.begin(), entries_.end(),
                       [&](const VornLinkEntry& entry) { return entry.object == &object; });
  }
  if (!members_) {
    members_ = std::make_unique<std::unordered_set<const VornObject*>>();
    for (const VornLinkEntry& entry : entries_) {
      if (entry.object != nullptr) {
        members_->insert(entry.object);
      }
    }
  }
  return members_->contains(&object);
}

VornObject& VornObjectCollection::at(std::size_t index) {
  closeGaps();
  return *entries_[index].object;
}

VornNameIndex& VornObjectCollection::names() {
  if (!names_) {
    auto names = std::make_unique<VornNameIndex>();
    for (const VornLinkEntry& entry : entries_) {
      if (entry.object != nullptr) {
        names->add(*entry.object);
      }
    }
    names_ = std::move(names);
  }
  return *names_;
}

void VornObjectCollection::dropNames() {
  names_.reset();
}

void VornObjectCollection::closeGaps() {
  if (removed_ == 0) {
    return;
  }
  std::erase_if(entries_, [](const VornLinkEntry& entry) { return entry.object == nullptr; });
  removed_ = 0;
  for (std::uint32_t slot = 0; slot < entries_.size(); ++slot) {
    VornLinks::at(entries_[slot].twin).twin.slot = slot;
  }
}

void VornLinkMany::clear() {
  if (collection_) {
    // From the back, so that none of them leaves a gap behind.
    while (collection_->getCount() > 0) {
      VornLinks::disconnect(
          {collection_.get(), static_cast<std::uint32_t>(collection_->getEntries().size() - 1)});
    }
  }
}

VornObjectCollection& VornLinkMany::collection() {
  if (!collection_) {
    collection_ = std::make_unique<VornObjectCollection>();
  }
  return *collection_;
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
  return endOfB.entry_.object == &a && endOfB.entry_.twin.end == endOfA.collection_.get();
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
  VornObjectCollection& collection = end.collection();
  auto& entries = collection.entries_;
  if (entries.size() == entries.capacity()) {
    if (collection.removed_ > entries.size() / 2) {
      collection.closeGaps();
    } else {
      entries.reserve(std::max(kFirstRoom, entries.size() * 2));
    }
  }
  return {&collection, static_cast<std::uint32_t>(entries.size())};
}

void VornLinks::join(VornObject& a, VornLinkPlace inA, VornObject& b, VornLinkPlace inB) {
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
    static_cast<VornObjectCollection*>(place.end)->entries_.push_back(entry);  // there is room
  }
}

void VornLinks::drop(VornLinkPlace place) noexcept {
  const VornObject* object = std::exchange(at(place), VornLinkEntry{}).object;
  if (place.slot == VornLinkPlace::kOnly) {
    return;
  }
  forget(place, *object);
  auto& collection = static_cast<VornObjectCollection&>(*place.end);
  ++collection.removed_;
  auto& entries = collection.entries_;
  while (!entries.empty() && entries.back().object == nullptr) {
    entries.pop_back();
    --collection.removed_;
  }
}

void VornLinks::remember(VornLinkPlace place, const VornObject& object) {
  if (place.slot == VornLinkPlace::kOnly) {
    return;
  }
  auto& collection = static_cast<VornObjectCollection&>(*place.end);
  if (collection.members_) {
    collection.members_->insert(&object);
  }
  if (collection.names_) {
    collection.names_->add(object);
  }
}

void VornLinks::forget(VornLinkPlace place, const VornObject& object) noexcept {
  if (place.slot == VornLinkPlace::kOnly) {
    return;
  }
  auto& collection = static_cast<VornObjectCollection&>(*place.end);
  if (collection.members_) {
    collection.members_->erase(&object);
  }
  if (collection.names_) {
    collection.names_->remove(object);
  }
}
