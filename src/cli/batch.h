// Many imports in one go: each in a process of its own, a line for each as it ends, a summary of all.
#pragma once

#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/import_job.h"
#include "cli/worker_pool.h"

namespace cli {

// The jobs that import each of `sources` into `folder`, once in each format. Throws UsageError for what
// checkOutputs refuses, and for a file that the summary would replace.
std::vector<ImportJob> planBatch(const std::vector<std::string>& sources, const std::string& folder,
                                 const std::vector<VornOutputFormat>& formats);

// Runs the jobs with `options` and leaves the summary in `folder`, which is made where it is missing.
ExitStatus runBatch(VornImportBridgeDllInterface& bridge, VornOptionList& options,
                    const CommonOptions& common, const std::vector<ImportJob>& jobs,
                    const std::string& folder, const WorkerLimits& limits);

}  // namespace cli
