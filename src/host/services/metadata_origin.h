// The note that a model carries of the import it came from.
#pragma once

#include <memory>

#include "host/metamodel/store_model.h"
#include "host/plugin/bridge_specification.h"

// A new origin: the bridge, the name by which its caller knows the import, and the bridge's build.
std::unique_ptr<VornMetadataOrigin> generateMetadataOrigin(const VornBridgeSpecificationLiteral& bridge,
                                                           const VornString& identifier,
                                                           const VornString& buildVersion);
