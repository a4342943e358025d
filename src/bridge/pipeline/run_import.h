// One import, from its first step to its last.
#pragma once

#include "host/base/text.h"

class VornLog;
class VornOptionList;
class VornStoreModel;

namespace silrdm {

// Imports the export that `options` name into `model`, which is empty. `identifier` is the caller's name for
// the import. Throws VornException; the model is then incomplete.
void runImport(const VornString& identifier, const VornString& buildVersion, const VornOptionList& options,
               VornStoreModel& model, VornLog& log);

}  // namespace silrdm
