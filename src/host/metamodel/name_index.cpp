#include "host/metamodel/name_index.h"

#include <charconv>

#include "host/metamodel/object.h"

void VornNameIndex::add(const VornObject& member) {
  const auto [place, isNew] = holders_.try_emplace(member.getName().view(), Holders{&member, &member});
  if (!isNew) {
    Holders& holders = place->second;
    neighbours_[&member].previous = holders.last;
    neighbours_[holders.last].next = &member;
    holders.last = &member;
  }
}

void VornNameIndex::remove(const VornObject& member) {
  const auto place = holders_.find(member.getName().view());
  if (place == holders_.end()) {
    return;
  }
  const auto found = neighbours_.find(&member);
  if (found == neighbours_.end()) {
    if (place->second.first == &member) {
      holders_.erase(place);
      giveBack(member.getName().view());
    }
    return;
  }
  const auto [previous, next] = found->second;
  neighbours_.erase(found);
  if (next != nullptr) {
    neighbours_[next].previous = previous;
  } else {
    place->second.last = previous;
  }
  if (previous != nullptr) {
    neighbours_[previous].next = next;
  } else {
    auto node = holders_.extract(place);
    node.mapped().first = next;
    node.key() = next->getName().view();
    holders_.insert(std::move(node));
  }
  const VornObject* rest = previous != nullptr ? previous : next;
  const Neighbours& left = neighbours_[rest];
  if (left.previous == nullptr && left.next == nullptr) {
    neighbours_.erase(rest);
  }
}

VornObject* VornNameIndex::find(std::string_view name) const {
  const auto found = holders_.find(name);
  return found == holders_.end() ? nullptr : const_cast<VornObject*>(found->second.first);
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
    suffixes.givenBack.pop();
    if (!holders_.contains(candidate)) {
      return VornString(std::move(candidate));
    }
  }
  for (;; ++suffixes.next) {
    std::string candidate = stem + std::to_string(suffixes.next);
    if (!holders_.contains(candidate)) {
      return VornString(std::move(candidate));
    }
  }
}

void VornNameIndex::giveBack(std::string_view name) {
  if (suffixes_.empty()) {
    return;
  }
  const std::size_t stemLength = name.find_last_not_of("0123456789") + 1;
  const std::string_view digits = name.substr(stemLength);
  std::uint64_t number = 0;
  const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const auto suffixes = suffixes_.find(std::string(name.substr(0, stemLength)));
  if (parsed.ec == std::errc{} && !digits.starts_with('0') && number >= 2 && suffixes != suffixes_.end() &&
      number < suffixes->second.next) {
    suffixes->second.givenBack.push(number);
  }
}
