#include "host/plugin/input_inspection.h"

VornInputInspector::~VornInputInspector() = default;

VornInputInspection::~VornInputInspection() = default;
