#include "cli/import_job.h"

#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "cli/commands.h"
#include "cli/import_log.h"
#include "cli/option_values.h"
#include "cli/suggestion.h"
#include "host/constants/pemo.h"
#include "host/metamodel/store_model.h"
#include "host/modelbridge/dll_interface.h"
#include "host/std/exception.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

// What makes a file the same under all its names; nothing when it is not there.
std::set<std::pair<dev_t, ino_t>> identify(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    return {};
  }
  return {{status.st_dev, status.st_ino}};
}

void checkFormat(const ImportOutput& output) {
  VornFile file;
  file = VornString(output.path);
  file.setFormat(output.format);
  try {
    getModelFormat(file);
  } catch (const VornException& problem) {
    std::vector<std::string> names;
    for (const VornModelFormat& format : getModelFormats()) {
      names.emplace_back(format.name);
    }
    const std::string extension = std::filesystem::path(output.path).extension().string();
    const std::string wanted = !output.format.name.empty() ? std::string(output.format.name.view())
                               : extension.empty()         ? extension
                                                           : extension.substr(1);
    const std::string suggestion = suggest(wanted, names);
    throw UsageError(std::string(problem.getText().view()) +
                     (suggestion.empty() ? "; name one with -t" : suggestion));
  }
}

}  // namespace

ExitStatus statusOf(const VornException& problem) {
  const auto is = [&](const VornMessageLiteral& message) { return problem.getCode() == message.getCode(); };
  if (is(PEMO::CANNOT_WRITE_FILE)) {
    return kCannotWrite;
  }
  return problem.getCode().view().starts_with("VORN_") ? kInternalError : kBadInput;
}

void checkOutputs(const std::vector<ImportJob>& jobs, const std::string& reserved) {
  std::set<std::pair<dev_t, ino_t>> exports;
  for (const ImportJob& job : jobs) {
    exports.merge(identify(job.source));
  }
  std::map<std::string, std::string> makers;  // of outputs
  if (!reserved.empty()) {
    makers.emplace(std::filesystem::path(reserved).lexically_normal(), "the summary");
  }
  const auto claim = [&](const std::string& path, const ImportJob& job) {
    for (const auto& file : identify(path)) {
      if (exports.contains(file)) {
        throw UsageError("the output '" + path + "' is the export itself");
      }
    }
    const std::string maker = "'" + job.source + "'";
    const auto [other, isNew] = makers.emplace(std::filesystem::path(path).lexically_normal(), maker);
    if (!isNew) {
      throw UsageError("'" + path + "' would be made twice: from " + other->second + " and from " + maker);
    }
  };
  for (const ImportJob& job : jobs) {
    for (const ImportOutput& output : job.outputs) {
      checkFormat(output);
      claim(output.path, job);
    }
    if (!job.report.empty()) {
      claim(job.report, job);
    }
  }
}

ExitStatus runImport(VornImportBridgeDllInterface& bridge, VornOptionList& options, const ImportJob& job,
                     ImportLog& log) {
  setOption(options, "File", job.source);
  VornFile output;
  output = VornString(job.outputs.front().path);
  output.setFormat(job.outputs.front().format);
  log.saveAlsoInto({job.outputs.begin() + 1, job.outputs.end()});
  try {
    if (!bridge.test(kImporter, options, log)) {
      return kBadInput;
    }
    if (!job.report.empty()) {
      log.openReport(job.report);
    }
    VornStoreModel::leaveToProcessEnd();  // one import a process
    bridge.run(kImporter, output, options, log);
    log.commitReport();
  } catch (const VornException& problem) {
    log.write(problem.getSeverity(), problem.getCode(), problem.getFullText());
    return statusOf(problem);
  }
  return kDone;
}

}  // namespace cli
