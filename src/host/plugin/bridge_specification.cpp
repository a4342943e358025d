#include "host/plugin/bridge_specification.h"

void VornBridgeSpecification::initialize(const VornString& web, const VornString& vendor,
                                         const VornString& tool, const VornString& versions,
                                         const VornString& category, const VornString& coverage,
                                         const VornString& interface, const VornString& method,
                                         const VornString& build, const VornString& text, bool isBeta) {
  *this = {web, vendor, tool, versions, category, coverage, interface, method, build, text, isBeta};
}
