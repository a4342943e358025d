// keepOnly: how a pass takes what is not wanted out of a registry.
#pragma once

namespace silrdm {

// Takes every item that `isKept` refuses out of the registry and destroys it, with its element.
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
