// Which exports a batch imports and where their models go.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/import_job.h"

namespace cli {

struct BatchArguments {
  std::vector<std::string> sources;  // exports, and folders of exports
  std::string folder;                // of the models and the summary
  std::string reports;               // the folder of the reports; empty: none are wanted
  std::vector<VornOutputFormat> formats;
  bool replaces = true;  // whether outputs that are there already are replaced
  bool resumes = false;  // whether the models that an earlier batch made are left
  InputLook look = {};
  // The options that the models depend on, as given: a batch with others has nothing to resume.
  std::map<std::string, std::vector<std::string>> options;
};

// "FOLDER/summary.json"
std::string getSummaryPath(const BatchArguments& arguments);

// One job for each export: the sources that are files, and of those that are folders all files below that are
// called *.txt in any letter case, in the order of their paths. The models of a folder's exports lie as the
// exports do, below the last folder that all folders given have in common. Throws UsageError for a folder
// without exports or that cannot be read, for what checkOutputs refuses, and for a file that the summary
// would replace.
std::vector<ImportJob> planBatch(const BatchArguments& arguments);

}  // namespace cli
