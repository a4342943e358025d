#include "cli/batch_plan.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "cli/commands.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

namespace fs = std::filesystem;

// An export, and the path of its models below the output folder, without an extension.
struct Export {
  std::string source;
  fs::path name;
};

bool isNamedAsExport(const fs::path& path) {
  std::string extension = path.extension().string();
  std::ranges::transform(extension, extension.begin(), [](char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
  });
  return extension == ".txt";
}

// Links to files count as files; links to folders are not followed, so that no way leads round in a circle.
std::vector<fs::path> listExports(const std::string& folder) {
  std::vector<fs::path> found;
  std::error_code error;
  for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code gone;
    if (isNamedAsExport(entry->path()) && entry->is_regular_file(gone)) {
      found.push_back(entry->path());
    }
  }
  if (error) {
    throw UsageError("cannot read the folder '" + folder + "': " + error.message());
  }
  if (found.empty()) {
    throw UsageError("there is no *.txt in or below the folder '" + folder + "'");
  }
  std::ranges::sort(found, {}, &fs::path::native);
  return found;
}

// The last folder that has both below it, or is one of them.
fs::path findCommonFolder(const fs::path& one, const fs::path& other) {
  fs::path common;
  for (auto left = one.begin(), right = other.begin();
       left != one.end() && right != other.end() && *left == *right; ++left, ++right) {
    common /= *left;
  }
  return common;
}

std::vector<Export> listExports(const std::vector<std::string>& sources) {
  std::error_code unknown;
  const auto isFolder = [&](const std::string& source) { return fs::is_directory(source, unknown); };
  std::optional<fs::path> common;
  for (const std::string& source : sources) {
    if (isFolder(source)) {
      const fs::path folder = fs::canonical(source);
      common = common ? findCommonFolder(*common, folder) : folder;
    }
  }
  std::vector<Export> exports;
  for (const std::string& source : sources) {
    if (!isFolder(source)) {
      exports.push_back({source, fs::path(source).stem()});
      continue;
    }
    const fs::path mirrored = fs::canonical(source).lexically_relative(*common);
    for (const fs::path& path : listExports(source)) {
      const fs::path name = (mirrored / path.lexically_relative(source)).lexically_normal();
      exports.push_back({path.string(), fs::path(name).replace_extension()});
    }
  }
  return exports;
}

std::string getExtension(const VornOutputFormat& wanted) {
  const auto all = getModelFormats();
  const auto format =
      std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.name == wanted.name.view(); });
  return std::string(format == all.end() ? "" : format->extension);
}

}  // namespace

std::string getSummaryPath(const BatchArguments& arguments) {
  return (fs::path(arguments.folder) / "summary.json").string();
}

std::vector<ImportJob> planBatch(const BatchArguments& arguments) {
  std::vector<ImportJob> jobs;
  for (const Export& one : listExports(arguments.sources)) {
    ImportJob& job = jobs.emplace_back(ImportJob{one.source, {}, {}, arguments.replaces, arguments.look});
    const std::string output = (fs::path(arguments.folder) / one.name).string();
    for (const VornOutputFormat& wanted : arguments.formats) {
      job.outputs.push_back({output + getExtension(wanted), wanted});
    }
    if (!arguments.reports.empty()) {
      job.report = (fs::path(arguments.reports) / one.name).string() + ".jsonl";
    }
  }
  checkOutputs(jobs, getSummaryPath(arguments));
  return jobs;
}

}  // namespace cli
