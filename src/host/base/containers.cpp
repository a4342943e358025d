#include "host/base/containers.h"

#include <algorithm>
#include <functional>
#include <utility>

VornContainer::~VornContainer() = default;

int VornContainer::compare2Object(const void* first, const void* second) const {
  return static_cast<int>(std::less<>()(second, first)) - static_cast<int>(std::less<>()(first, second));
}

int VornContainer::compare2Key(const void* object, const void* key) const {
  return compare2Object(object, key);
}

VornRBTree::~VornRBTree() = default;

std::uint64_t VornRBTree::rankObject(const void* /*object*/) const {
  return 1;
}

std::uint64_t VornRBTree::rankKey(const void* /*key*/) const {
  return 1;
}

VornRBTree::Iterator::Iterator(VornRBTree& tree, bool ascending) : tree_(&tree), ascending_(ascending) {
  tree.sort();
  place_ = ascending ? tree.skipRemoved(0) : tree.entries_.size();
  if (!ascending) {
    goBack();
  }
}

void* VornRBTree::Iterator::next() {
  if (place_ < tree_->entries_.size()) {
    if (ascending_) {
      place_ = tree_->skipRemoved(place_ + 1);
    } else {
      goBack();
    }
  }
  return get();
}

void VornRBTree::Iterator::goBack() {
  const std::vector<Entry>& entries = tree_->entries_;
  do {
    place_ = place_ == 0 ? entries.size() : place_ - 1;
  } while (place_ < entries.size() && entries[place_].object == nullptr);
}

void VornRBTree::empty() {
  entries_ = std::vector<Entry>();  // with its memory
  behind_ = std::vector<std::uint32_t>();
  sorted_ = 0;
  removed_ = 0;
  lastFound_ = 0;
}

bool VornRBTree::add(void* object, bool /*unique*/, Iterator* iterator) {
  const Entry entry{rankObject(object), object};
  // Exports list most records in the order of their identifiers.
  const bool isLast =
      sorted_ == entries_.size() && (sorted_ == 0 || entries_.back().rank < entry.rank ||
                                     (entries_.back().rank == entry.rank &&
                                      entries_.back().object != nullptr && !isLess(entry, entries_.back())));
  entries_.push_back(entry);
  sorted_ += static_cast<std::size_t>(isLast);
  if (iterator != nullptr) {
    sort();
    iterator->tree_ = this;
    iterator->place_ = static_cast<std::size_t>(
        std::ranges::find(entries_.rbegin(), entries_.rend(), object, &Entry::object).base() -
        entries_.begin() - 1);
  }
  return true;
}

void* VornRBTree::findFirst(const void* key, Iterator* iterator) {
  sort();
  const std::uint64_t rank = rankKey(key);
  lastFound_ = findRank(rank);
  std::size_t found = skipRemoved(lastFound_);
  const auto compareFound = [&] {
    if (found >= entries_.size() || entries_[found].rank != rank) {
      return 1;
    }
    return tellsAll(rank) ? 0 : compare2Key(entries_[found].object, key);
  };
  int order = compareFound();
  if (order < 0) {
    found = findAmongSameRank(found + 1, key);
    order = compareFound();
  }
  if (order != 0) {
    return nullptr;
  }
  if (iterator != nullptr) {
    iterator->tree_ = this;
    iterator->place_ = found;
  }
  return entries_[found].object;
}

void* VornRBTree::remove(Iterator& iterator) {
  void* const object = iterator.get();
  if (object != nullptr) {
    if (behind_.size() < entries_.size()) {
      behind_.resize(entries_.size());
    }
    entries_[iterator.place_].object = nullptr;
    behind_[iterator.place_] = static_cast<std::uint32_t>(iterator.place_ + 1);
    ++removed_;
    iterator.next();
  }
  return object;
}

void VornRBTree::sort() {
  if (sorted_ == entries_.size()) {
    return;
  }
  const auto wasRemoved = [](const Entry& entry) { return entry.object == nullptr; };
  const auto middle = entries_.begin() + static_cast<std::ptrdiff_t>(sorted_);
  const auto kept = std::remove_if(entries_.begin(), middle, wasRemoved);
  sorted_ = static_cast<std::size_t>(kept - entries_.begin());
  entries_.erase(kept, middle);
  behind_.clear();
  removed_ = 0;
  const auto isLessThan = [this](const Entry& a, const Entry& b) { return isLess(a, b); };
  const auto added = entries_.begin() + static_cast<std::ptrdiff_t>(sorted_);
  std::stable_sort(added, entries_.end(), isLessThan);
  std::inplace_merge(entries_.begin(), added, entries_.end(), isLessThan);
  sorted_ = entries_.size();
}

bool VornRBTree::isLess(const Entry& first, const Entry& second) const {
  if (first.rank != second.rank || tellsAll(first.rank)) {
    return first.rank < second.rank;
  }
  return compare2Object(first.object, second.object) < 0;
}

std::size_t VornRBTree::skipRemoved(std::size_t place) {
  std::size_t live = place;
  while (live < entries_.size() && entries_[live].object == nullptr) {
    live = behind_[live];
  }
  // The next one to come this way skips them all at once.
  while (place < live) {
    place = std::exchange(behind_[place], static_cast<std::uint32_t>(live));
  }
  return live;
}

std::size_t VornRBTree::findRank(std::uint64_t rank) const {
  const auto isLess = [](const Entry& entry, std::uint64_t wanted) { return entry.rank < wanted; };
  const auto begin = entries_.begin();
  // What refers to others mostly refers to the same one as the last did, or to one near it: search in ever
  // wider steps from there.
  std::size_t first = 0;
  std::size_t last = entries_.size();
  std::size_t step = 1;
  if (lastFound_ < last && isLess(entries_[lastFound_], rank)) {
    for (first = lastFound_ + 1; first + step < last && isLess(entries_[first + step], rank); step *= 2) {
      first += step + 1;
    }
    last = std::min(last, first + step + 1);
  } else {
    for (last = std::min(last, lastFound_); step <= last && !isLess(entries_[last - step], rank); step *= 2) {
      last -= step;
    }
    first = step <= last ? last - step : 0;
  }
  const auto at = [&](std::size_t place) { return begin + static_cast<std::ptrdiff_t>(place); };
  return static_cast<std::size_t>(std::lower_bound(at(first), at(last), rank, isLess) - begin);
}

std::size_t VornRBTree::findAmongSameRank(std::size_t first, const void* key) {
  const std::uint64_t rank = entries_[first - 1].rank;
  const auto begin = entries_.begin() + static_cast<std::ptrdiff_t>(first);
  std::size_t last = static_cast<std::size_t>(
      std::upper_bound(begin, entries_.end(), rank,
                       [](std::uint64_t wanted, const Entry& entry) { return wanted < entry.rank; }) -
      entries_.begin());
  while (first < last) {
    const std::size_t middle = first + (last - first) / 2;
    // What was taken out is gone and cannot be compared; what follows it can.
    const std::size_t live = skipRemoved(middle);
    const bool isLess = live < last && compare2Key(entries_[live].object, key) < 0;
    (isLess ? first : last) = isLess ? live + 1 : middle;
  }
  return skipRemoved(first);
}

VornArrayInterface::~VornArrayInterface() = default;

VornVector::~VornVector() = default;

bool VornVector::add(void* object, bool atEnd) {
  entries_.insert(atEnd ? entries_.end() : entries_.begin(), object);
  return true;
}
