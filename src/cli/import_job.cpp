#include "cli/import_job.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "cli/commands.h"
#include "cli/import_log.h"
#include "cli/import_watch.h"
#include "cli/known_names.h"
#include "cli/option_values.h"
#include "cli/suggestion.h"
#include "host/base/exception.h"
#include "host/base/output_file.h"
#include "host/base/pemo.h"
#include "host/metamodel/store_model.h"
#include "host/plugin/dll_interface.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

// What makes a file the same under all its names and for all who have it open.
using FileIdentity = std::pair<dev_t, ino_t>;

// Nothing for what is not there, and for devices and sockets, which several may share without loss.
std::optional<FileIdentity> identify(bool isThere, const struct stat& status) {
  if (!isThere || !(S_ISREG(status.st_mode) || S_ISFIFO(status.st_mode))) {
    return std::nullopt;
  }
  return FileIdentity{status.st_dev, status.st_ino};
}

std::optional<FileIdentity> identify(int descriptor) {
  struct stat status {};
  const bool isThere = ::fstat(descriptor, &status) == 0;
  return identify(isThere, status);
}

// `standard` is the stream that "-" names.
std::optional<FileIdentity> identify(const std::string& path, int standard) {
  if (path == VornOutputFile::kStandardOutput) {
    return identify(standard);
  }
  struct stat status {};
  const bool isThere = ::stat(path.c_str(), &status) == 0;
  return identify(isThere, status);
}

// The outputs of one command: no two of them may be one file, and none an export.
class OutputClaims {
 public:
  // What goes to an open stream of the process.
  void addStream(int descriptor, const char* what) {
    struct stat status {};
    // A terminal or a pipe may well take several of them.
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
      files_.emplace(FileIdentity{status.st_dev, status.st_ino}, what);
    }
  }
  void addExport(const std::string& path) {
    if (const auto file = identify(path, STDIN_FILENO)) {
      exports_.insert(*file);
    }
  }
  // Throws UsageError.
  void add(const std::string& path, const std::string& what) {
    if (const auto file = identify(path, STDOUT_FILENO)) {
      if (exports_.contains(*file)) {
        throw UsageError("the output '" + path + "' is the export itself");
      }
      addTo(files_, *file, path, what);
    }
    addTo(paths_, resolve(path), path, what);
  }

 private:
  static std::string resolve(const std::string& path);

  template <class Key>
  static void addTo(std::map<Key, std::string>& claimed, const Key& key, const std::string& path,
                    const std::string& what) {
    const auto [other, isNew] = claimed.emplace(key, what);
    if (!isNew) {
      throw UsageError("'" + path + "' would be written twice: as " + other->second + " and as " + what);
    }
  }

  std::set<FileIdentity> exports_;
  std::map<FileIdentity, std::string> files_;  // those that are there; with what goes into them
  std::map<std::string, std::string> paths_;   // the same of all outputs
};

// The same for all paths that lead to one output, which need not be there.
std::string OutputClaims::resolve(const std::string& path) {
  const auto target = std::filesystem::absolute(VornOutputFile::followLinks(path));
  std::error_code unreadable;
  const auto resolved = std::filesystem::weakly_canonical(target, unreadable);
  return unreadable ? target.lexically_normal() : resolved;
}

std::vector<std::string> listOutputs(const ImportJob& job) {
  std::vector<std::string> paths;
  for (const VornModelOutput& output : job.outputs) {
    paths.push_back(output.path);
  }
  if (!job.report.empty()) {
    paths.push_back(job.report);
  }
  return paths;
}

// Nothing where there is no regular file.
std::optional<struct stat> examineOutput(const std::string& path) {
  struct stat status {};
  const bool isFile = path != VornOutputFile::kStandardOutput && ::stat(path.c_str(), &status) == 0 &&
                      S_ISREG(status.st_mode);
  return isFile ? std::optional(status) : std::nullopt;
}

void checkFormat(const VornModelOutput& output) {
  try {
    getModelFormat(output);
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

// Counts the model that it saves.
class CountedOutputs final : public VornModelOutputs {
 public:
  using VornModelOutputs::VornModelOutputs;

  void save(VornStoreModel& model, VornLog& log) override {
    VornModelOutputs::save(model, log);
    counts_ = countModel(model);
  }
  const ImportCounts& getCounts() const { return counts_; }

 private:
  ImportCounts counts_;
};

}  // namespace

void checkOutputs(const std::vector<ImportJob>& jobs, const std::string& reserved) {
  OutputClaims claims;
  claims.addStream(STDERR_FILENO, "the messages");
  for (const ImportJob& job : jobs) {
    claims.addExport(job.source);
  }
  if (!reserved.empty()) {
    claims.addStream(STDOUT_FILENO, "the table");
    claims.add(reserved, "the summary");
  }
  for (const ImportJob& job : jobs) {
    const std::string source = " of '" + job.source + "'";
    for (const VornModelOutput& output : job.outputs) {
      checkFormat(output);
      claims.add(output.path, "a model" + source);
    }
    if (!job.report.empty()) {
      claims.add(job.report, "the report" + source);
    }
  }
}

EarlierOutputs::EarlierOutputs(const ImportJob& job) {
  for (const std::string& path : listOutputs(job)) {
    if (const auto status = examineOutput(path)) {
      files_.push_back({path, status->st_ino, status->st_mtim});
    } else {
      isComplete_ = false;
    }
  }
}

std::vector<std::string> EarlierOutputs::getUntouched() const {
  std::vector<std::string> paths;
  for (const File& file : files_) {
    const auto status = examineOutput(file.path);
    if (status && status->st_ino == file.number && status->st_mtim.tv_sec == file.modified.tv_sec &&
        status->st_mtim.tv_nsec == file.modified.tv_nsec) {
      paths.push_back(file.path);
    }
  }
  return paths;
}

ImportResult runImport(VornImportBridgeDllInterface& bridge, VornOptionList& options, const ImportJob& job,
                       ImportLog& log, ImportWatch& watch) {
  setOption(options, "File", job.source);
  CountedOutputs outputs(job.outputs);
  try {
    for (const std::string& path : listOutputs(job)) {
      VornOutputFile::check(path, job.replaces);
    }
    if (!bridge.test(kImporter, options, log)) {
      return {kBadInput, {}};
    }
    if (const ExitStatus status = lookAtInput(bridge, options, job.look, log); status != kDone) {
      return {status, {}};
    }
    if (!job.report.empty()) {
      watch.openReport(job.report);
    }
    VornStoreModel::leaveToProcessEnd();  // one import a process
    bridge.run(kImporter, outputs.getFile(), options, log);
    watch.commitReport();
  } catch (const VornException& problem) {
    log.write(problem.getSeverity(), problem.getCode(), problem.getFullText());
    return {statusOf(problem), outputs.getCounts()};
  }
  return {kDone, outputs.getCounts()};
}

}  // namespace cli
