// Mends exports that were damaged on their way here.
#pragma once

#include <string>

#include "host/plugin/input_inspection.h"

namespace silrdm {

// In this order: UTF-16, UTF-32 and UTF-8 with a byte order mark become UTF-8 without; what follows section
// 68 is cut off; the LF or CR LF that ends a record becomes CR, while texts keep their line ends. There is an
// obstacle where that makes no whole export. `name` is what it calls the export.
VornRepairedInput repairExport(std::string bytes, const std::string& name);

}  // namespace silrdm
