#include "host/services/metadata_origin.h"

std::unique_ptr<VornMetadataOrigin> generateMetadataOrigin(const VornBridgeSpecificationLiteral& bridge,
                                                           const VornString& identifier,
                                                           const VornString& buildVersion) {
  auto origin = std::make_unique<VornMetadataOrigin>();
  origin->bridge = bridge.identifier;
  origin->identifier = identifier;
  origin->buildVersion = buildVersion;
  return origin;
}
