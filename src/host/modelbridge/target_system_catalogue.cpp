#include "host/modelbridge/target_system_catalogue.h"

VornTargetSystemCatalogue::~VornTargetSystemCatalogue() = default;
