#include "host/metamodel/name_index.h"

#include <charconv>
#include <new>
#include <utility>

#include "host/metamodel/object.h"

namespace {

// Up to here a scan for a name costs less than an index.
constexpr std::size_t kFew = 24;

VornNameIndex* indexOf(const VornObjectCollection& collection) {
  return static_cast<VornNameIndex*>(collection.getIndex());  // no other kind is set for owned members
}

bool isScanned(const VornLinkMany& members) {
  const VornObjectCollection* collection = members.getCollection();
  return collection == nullptr ||
         (collection->getEntries().size() <= kFew && collection->getIndex() == nullptr);
}

VornObject* scanFrom(const VornLinkMany& members, std::uint32_t slot, std::string_view name) {
  for (auto entry = members.entries(slot); entry != std::default_sentinel; ++entry) {
    if ((*entry).object->getName().view() == name) {
      return (*entry).object;
    }
  }
  return nullptr;
}

VornNameIndex& makeIndex(const VornLinkMany& members) {
  VornObjectCollection& collection = *members.getCollection();
  if (collection.getIndex() == nullptr) {
    auto index = std::make_unique<VornNameIndex>();
    for (auto entry = members.entries(); entry != std::default_sentinel; ++entry) {
      index->add(*(*entry).object);
    }
    collection.setIndex(std::move(index));
  }
  return *indexOf(collection);
}

// The collection through which an object is owned, or null.
VornObjectCollection* findSiblings(const VornObject& object) {
  const VornLinkEntry& owner = object.ownerEnd().getEntry();
  return owner.object == nullptr ? nullptr : static_cast<VornLinkMany*>(owner.twin.end)->getCollection();
}

// The member's position among its owner's members; after all of them while it is being added.
std::uint32_t placeOf(const VornObject& member) {
  return member.ownerEnd().getEntry().twin.slot;
}

}  // namespace

void VornNameIndex::add(const VornObject& member) {
  const auto [place, isNew] = holders_.try_emplace(member.getName().view(), Holders{&member, &member});
  if (isNew) {
    return;
  }
  // A new member belongs at the end; one that was renamed may belong further to the front.
  Holders& holders = place->second;
  const VornObject* previous = holders.last;
  const VornObject* next = nullptr;
  while (previous != nullptr && placeOf(*previous) > placeOf(member)) {
    next = previous;
    const auto beside = neighbours_.find(previous);
    previous = beside == neighbours_.end() ? nullptr : beside->second.previous;
  }
  for (const VornObject* holder : {holders.last, &member}) {  // a sole holder has no neighbours yet
    neighbours_.try_emplace(holder);                          // all that can fail, before anything changes
  }
  neighbours_.find(&member)->second = {previous, next};
  (previous != nullptr ? neighbours_.find(previous)->second.next : holders.first) = &member;
  (next != nullptr ? neighbours_.find(next)->second.previous : holders.last) = &member;
  if (previous == nullptr) {
    rekey(place);
  }
}

void VornNameIndex::remove(const VornObject& member) noexcept {
  const auto place = holders_.find(member.getName().view());
  if (place == holders_.end()) {
    return;
  }
  const auto node = neighbours_.extract(&member);
  const auto [previous, next] = node.empty() ? Neighbours{} : node.mapped();
  Holders& holders = place->second;
  if (holders.first == &member && holders.last == &member) {
    holders_.erase(place);
    giveBack(member.getName().view());
    return;
  }
  if (previous != nullptr) {
    neighbours_.find(previous)->second.next = next;
  }
  if (next != nullptr) {
    neighbours_.find(next)->second.previous = previous;
  }
  if (holders.last == &member) {
    holders.last = previous;
  }
  if (holders.first == &member) {
    holders.first = next;
    rekey(place);
  }
}

void VornNameIndex::rekey(std::unordered_map<std::string_view, Holders>::iterator place) noexcept {
  auto entry = holders_.extract(place);
  entry.key() = entry.mapped().first->getName().view();
  holders_.insert(std::move(entry));
}

VornObject* VornNameIndex::find(std::string_view name) const {
  const auto found = holders_.find(name);
  return found == holders_.end() ? nullptr : const_cast<VornObject*>(found->second.first);
}

VornObject* VornNameIndex::findNext(const VornObject& member) const {
  const auto found = neighbours_.find(&member);
  return found == neighbours_.end() ? nullptr : const_cast<VornObject*>(found->second.next);
}

VornString VornNameIndex::makeUnique(const VornString& name, char separator) {
  if (name.empty() || !holders_.contains(name.view())) {
    return name;
  }
  std::string stem(name.view());
  stem += separator;
  Suffixes& suffixes = suffixes_[stem];
  while (!suffixes.givenBack.empty()) {
    std::string candidate = stem + std::to_string(suffixes.givenBack.top());
    if (!holders_.contains(candidate)) {
      return VornString(candidate);
    }
    suffixes.givenBack.pop();
  }
  for (;; ++suffixes.next) {
    std::string candidate = stem + std::to_string(suffixes.next);
    if (!holders_.contains(candidate)) {
      return VornString(candidate);
    }
  }
}

void VornNameIndex::giveBack(std::string_view name) noexcept {
  if (suffixes_.empty()) {
    return;
  }
  const std::size_t stemLength = name.find_last_not_of("0123456789") + 1;
  const std::string_view digits = name.substr(stemLength);
  std::uint64_t number = 0;
  const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (parsed.ec != std::errc{} || digits.starts_with('0') || number < 2) {
    return;
  }
  try {
    const auto suffixes = suffixes_.find(std::string(name.substr(0, stemLength)));
    if (suffixes != suffixes_.end() && number < suffixes->second.next) {
      suffixes->second.givenBack.push(number);
    }
  } catch (const std::bad_alloc&) {
    return;  // the number is not used again: a later name is longer than it could be
  }
}

VornObject* findNamed(const VornLinkMany& members, std::string_view name) {
  return isScanned(members) ? scanFrom(members, 0, name) : makeIndex(members).find(name);
}

VornObject* findNextNamesake(const VornLinkMany& members, const VornObject& member) {
  return isScanned(members)
             ? scanFrom(members, member.ownerEnd().getEntry().twin.slot + 1, member.getName().view())
             : makeIndex(members).findNext(member);
}

VornString makeUniqueName(const VornLinkMany& members, const VornString& name, char separator) {
  const bool isFree = name.empty() || findNamed(members, name.view()) == nullptr;
  return isFree ? name : makeIndex(members).makeUnique(name, separator);
}

VornNameIndex* indexAmongSiblings(const VornObject& member) {
  const VornObjectCollection* siblings = findSiblings(member);
  return siblings == nullptr ? nullptr : indexOf(*siblings);
}

void dropIndexAmongSiblings(const VornObject& member) {
  findSiblings(member)->setIndex(nullptr);
}
