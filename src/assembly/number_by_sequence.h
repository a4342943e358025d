// numberBySequence: how columns get their places in tables, and index members theirs in indexes.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "elements/parsed_elements.h"

namespace silrdm {

// Numbers the items from 0 in the order of their elements' sequence numbers; equal ones keep their order. The
// largest position stands for every one beyond it.
template <class Element, class Item>
void numberBySequence(std::vector<Item*> items) {
  std::stable_sort(items.begin(), items.end(), [](const Item* a, const Item* b) {
    return elementOf<Element>(*a)->sequence < elementOf<Element>(*b)->sequence;
  });
  constexpr std::size_t kLargest = std::numeric_limits<std::int16_t>::max();
  for (std::size_t place = 0; place < items.size(); ++place) {
    items[place]->position = static_cast<std::int16_t>(std::min(place, kLargest));
  }
}

}  // namespace silrdm
