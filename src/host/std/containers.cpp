#include "host/std/containers.h"

#include <functional>

VornContainer::~VornContainer() = default;

int VornContainer::compare2Object(const void* first, const void* second) const {
  return static_cast<int>(std::less<>()(second, first)) - static_cast<int>(std::less<>()(first, second));
}

int VornContainer::compare2Key(const void* object, const void* key) const {
  return compare2Object(object, key);
}

VornRBTree::~VornRBTree() = default;

VornRBTree::Iterator::Iterator(VornRBTree& tree, bool ascending)
    : tree_(&tree), ascending_(ascending), current_(tree.entries_.begin()) {
  if (!ascending && !tree.entries_.empty()) {
    current_ = std::prev(tree.entries_.end());
  }
}

void* VornRBTree::Iterator::next() {
  const Entries& entries = tree_->entries_;
  if (current_ == entries.end()) {
    return nullptr;
  }
  if (ascending_) {
    ++current_;
  } else if (current_ == entries.begin()) {
    current_ = entries.end();
  } else {
    --current_;
  }
  return get();
}

bool VornRBTree::add(void* object, bool /*unique*/, Iterator* iterator) {
  // Exports list most records in the order of their identifiers: the end is the best first guess.
  const auto place = entries_.insert(entries_.end(), object);
  if (iterator != nullptr) {
    iterator->tree_ = this;
    iterator->current_ = place;
  }
  return true;
}

void* VornRBTree::findFirst(const void* key, Iterator* iterator) {
  const auto found = entries_.lower_bound(Key{key});
  if (found == entries_.end() || compare2Key(*found, key) != 0) {
    return nullptr;
  }
  if (iterator != nullptr) {
    iterator->tree_ = this;
    iterator->current_ = found;
  }
  return *found;
}

void* VornRBTree::remove(Iterator& iterator) {
  void* object = iterator.get();
  if (object != nullptr) {
    const auto going = iterator.current_;
    iterator.next();
    entries_.erase(going);
  }
  return object;
}

VornArrayInterface::~VornArrayInterface() = default;

VornVector::~VornVector() = default;

bool VornVector::add(void* object, bool atEnd) {
  entries_.insert(atEnd ? entries_.end() : entries_.begin(), object);
  return true;
}
