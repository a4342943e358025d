// Which target systems a bridge accepts that are near one that it does not.
#pragma once

#include <string>
#include <vector>

#include "host/plugin/target_system_catalogue.h"

namespace cli {

// At most three, the nearest first: systems of the same name, or else of a name that is part of this one (or
// has it as a part), or else of a name that is spelt nearly so; of these the ones with the nearest versions.
// Letter case and blanks do not count.
std::vector<VornTargetSystem> findNearestSystems(const std::string& name, const std::string& version,
                                                 const std::vector<VornTargetSystem>& systems);

// "'Oracle' 11.0, 'Oracle' 10.0"; empty for none.
std::string listSystems(const std::vector<VornTargetSystem>& systems);

}  // namespace cli
