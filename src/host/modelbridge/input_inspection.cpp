#include "host/modelbridge/input_inspection.h"

VornInputInspector::~VornInputInspector() = default;

VornInputInspection::~VornInputInspection() = default;
