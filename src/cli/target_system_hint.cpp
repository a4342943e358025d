#include "cli/target_system_hint.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "cli/suggestion.h"

namespace cli {

namespace {

// Without blanks and in lower case.
std::string fold(std::string_view name) {
  std::string folded;
  for (const char letter : name) {
    if (std::isspace(static_cast<unsigned char>(letter)) == 0) {
      folded += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
  }
  return folded;
}

double toNumber(std::string_view version) {
  return std::strtod(std::string(version).c_str(), nullptr);
}

template <class Test>
std::vector<VornTargetSystem> select(const std::vector<VornTargetSystem>& systems, Test isWanted) {
  std::vector<VornTargetSystem> selected;
  std::ranges::copy_if(systems, std::back_inserter(selected),
                       [&](const VornTargetSystem& system) { return isWanted(fold(system.name.view())); });
  return selected;
}

std::vector<VornTargetSystem> findByName(const std::string& wanted,
                                         const std::vector<VornTargetSystem>& systems) {
  constexpr std::size_t kTellsLittle = 3;  // letters
  auto found = select(systems, [&](const std::string& name) { return name == wanted; });
  if (found.empty() && wanted.size() >= kTellsLittle) {
    found = select(systems, [&](const std::string& name) {
      return name.size() >= kTellsLittle &&
             (wanted.find(name) != std::string::npos || name.find(wanted) != std::string::npos);
    });
  }
  if (found.empty()) {
    std::vector<std::string> names;
    std::ranges::transform(systems, std::back_inserter(names),
                           [](const VornTargetSystem& system) { return fold(system.name.view()); });
    const std::string nearest = findNearest(wanted, names);
    found = select(systems, [&](const std::string& name) { return name == nearest; });
  }
  return found;
}

}  // namespace

std::vector<VornTargetSystem> findNearestSystems(const std::string& name, const std::string& version,
                                                 const std::vector<VornTargetSystem>& systems) {
  constexpr std::size_t kMost = 3;
  std::vector<VornTargetSystem> found = findByName(fold(name), systems);
  const double wanted = toNumber(version);
  std::ranges::stable_sort(found, {}, [&](const VornTargetSystem& system) {
    return std::abs(toNumber(system.version.view()) - wanted);
  });
  if (found.size() > kMost) {
    found.erase(found.begin() + kMost, found.end());
  }
  return found;
}

std::string listSystems(const std::vector<VornTargetSystem>& systems) {
  std::string list;
  for (const VornTargetSystem& system : systems) {
    list += list.empty() ? "'" : ", '";
    list.append(system.name.view()).append("' ").append(system.version.view());
  }
  return list;
}

}  // namespace cli
