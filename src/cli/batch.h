// Imports many exports, each in a separate process, with a line for each and a summary.
#pragma once

#include "cli/batch_plan.h"
#include "cli/commands.h"
#include "cli/worker_pool.h"

namespace cli {

// Imports what planBatch makes of the arguments with `options`, and leaves the summary in the folder; folders
// that are missing are made. A signal that asks the program to end ends it once the summary is there. Throws
// UsageError like planBatch and takeOverEarlierBatch.
ExitStatus runBatch(VornImportBridgeDllInterface& bridge, VornOptionList& options,
                    const CommonOptions& common, const BatchArguments& arguments, const WorkerLimits& limits);

}  // namespace cli
