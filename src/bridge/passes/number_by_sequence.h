// numberBySequence sets the positions of columns in tables and of members in indexes.
#pragma once

#include <algorithm>
#include <vector>

#include "bridge/elements/parsed_elements.h"
#include "host/metamodel/position.h"

namespace silrdm {

// Numbers the items from 0 in the order of their elements' sequence numbers; equal ones keep their order.
template <class Element, class Item>
void numberBySequence(std::vector<Item*> items) {
  std::stable_sort(items.begin(), items.end(), [](const Item* a, const Item* b) {
    return elementOf<Element>(*a)->sequence < elementOf<Element>(*b)->sequence;
  });
  for (std::size_t place = 0; place < items.size(); ++place) {
    items[place]->position = positionBehind(place);
  }
}

}  // namespace silrdm
