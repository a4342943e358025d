// Repairs exports that were damaged in transfer.
#pragma once

#include <string>

#include "host/plugin/input_inspection.h"

namespace silrdm {

// In this order: converts UTF-16, UTF-32 and UTF-8 with a byte order mark to UTF-8 without one; removes what
// follows section 68; replaces LF or CR LF at the end of a record with CR, while texts keep their line ends.
// The result has an obstacle if this gives no complete export. Messages refer to the export as `name`.
VornRepairedInput repairExport(std::string bytes, const std::string& name);

}  // namespace silrdm
