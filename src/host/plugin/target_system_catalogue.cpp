#include "host/plugin/target_system_catalogue.h"

VornTargetSystemCatalogue::~VornTargetSystemCatalogue() = default;
