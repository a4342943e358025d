// keepOnly: how a pass takes what is not wanted out of a registry.
#pragma once

#include "bridge/elements/registries.h"

namespace silrdm {

inline void destroyItem(VornObject* object) {
  destroyWithElement(object);
}
inline void destroyItem(SILRDMElement* element) {
  delete element;
}

// Takes every item that `isKept` refuses out of the registry and destroys it, with its element.
template <class Registry, class Test>
void keepOnly(Registry& registry, Test isKept) {
  for (auto item = registry.begin(); item != registry.end();) {
    auto* current = *item;
    if (isKept(*current)) {
      ++item;
    } else {
      registry.remove(item);
      destroyItem(current);
    }
  }
}

}  // namespace silrdm
