// keepOnly removes unwanted items from a registry.
#pragma once

namespace silrdm {

// Removes and destroys every item for which `isKept` returns false, with its element.
template <class Registry, class Test>
void keepOnly(Registry& registry, Test isKept) {
  for (auto item = registry.begin(); item != registry.end();) {
    if (isKept(**item)) {
      ++item;
    } else {
      registry.take(item).reset();
    }
  }
}

}  // namespace silrdm
