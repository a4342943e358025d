#include "cli/import_job.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "cli/commands.h"
#include "cli/import_log.h"
#include "cli/known_names.h"
#include "cli/option_values.h"
#include "cli/suggestion.h"
#include "host/constants/pemo.h"
#include "host/metamodel/store_model.h"
#include "host/modelbridge/dll_interface.h"
#include "host/std/exception.h"
#include "host/std/output_file.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

// What makes a file the same under all its names; nothing when it is not there or no regular file, which
// nothing is lost of.
std::set<std::pair<dev_t, ino_t>> identify(const std::string& path) {
  struct stat status {};
  const bool isThere = path == VornOutputFile::kStandardOutput ? ::fstat(STDOUT_FILENO, &status) == 0
                                                               : ::stat(path.c_str(), &status) == 0;
  if (!isThere || !S_ISREG(status.st_mode)) {
    return {};
  }
  return {{status.st_dev, status.st_ino}};
}

// The same for all paths that lead to one output, which need not be there.
std::string resolve(const std::string& path) {
  const auto target = std::filesystem::absolute(VornOutputFile::followLinks(path));
  std::error_code unreadable;
  const auto resolved = std::filesystem::weakly_canonical(target, unreadable);
  return unreadable ? target.lexically_normal() : resolved;
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
    const std::string named(output.format.name.view());
    if (!named.empty()) {
      throw UsageError("there is no format '" + named + "': `vorn formats` lists them" +
                       suggest(named, names));
    }
    if (const std::string foreign = explainForeignFormat(output.path); !foreign.empty()) {
      throw UsageError(foreign);
    }
    const std::string extension = std::filesystem::path(output.path).extension().string();
    const std::string suggestion = suggest(extension.empty() ? "" : extension.substr(1), names);
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
  const bool isHosts = problem.getCode().view().starts_with("VORN_");
  return isHosts && !is(PEMO::CANNOT_READ_FILE) ? kInternalError : kBadInput;
}

void checkOutputs(const std::vector<ImportJob>& jobs, const std::string& reserved) {
  std::set<std::pair<dev_t, ino_t>> exports;
  for (const ImportJob& job : jobs) {
    exports.merge(identify(job.source));
  }
  std::map<std::string, std::string> claimed;  // what stands at a path
  const auto claim = [&](const std::string& path, const std::string& what) {
    for (const auto& file : identify(path)) {
      if (exports.contains(file)) {
        throw UsageError("the output '" + path + "' is the export itself");
      }
    }
    const auto [other, isNew] = claimed.emplace(resolve(path), what);
    if (!isNew) {
      throw UsageError("'" + path + "' would be made twice: as " + other->second + " and as " + what);
    }
  };
  if (!reserved.empty()) {
    claim(reserved, "the summary");
  }
  for (const ImportJob& job : jobs) {
    const std::string source = " of '" + job.source + "'";
    for (const ImportOutput& output : job.outputs) {
      checkFormat(output);
      claim(output.path, "a model" + source);
    }
    if (!job.report.empty()) {
      claim(job.report, "the report" + source);
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
