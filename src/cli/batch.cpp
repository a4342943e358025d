#include "cli/batch.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "cli/import_log.h"
#include "cli/json_output.h"
#include "host/constants/pemo.h"
#include "host/std/exception.h"
#include "host/std/output_file.h"
#include "host/std/unicode.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

constexpr const char* kSummary = "summary.json";

// How one job ended.
struct Outcome {
  int status = kInternalError;
  std::string text;  // what the status says, or the reason of a failure
  ImportCounts counts;
  std::size_t warnings = 0;
  double seconds = 0;

  bool isFailure() const { return status != kDone && status != kAnswerIsNo; }
};

// In the worker: imports and tells, as text, what Outcome has of it, and the messages behind that.
std::string importAsWorker(VornImportBridgeDllInterface& bridge, VornOptionList& options,
                           const CommonOptions& common, const ImportJob& job) {
  std::ostringstream messages;
  ImportLog log(messages, false);
  log.setLevel(common.verbose ? VornSeverity::debug : VornSeverity::error);
  int status = kInternalError;
  std::string text;
  try {
    status = runImport(bridge, options, job, log);
    text = log.getError();
  } catch (const std::exception& problem) {
    text = toPrintableLine(problem.what());
  }
  const ImportCounts& counts = log.getCounts();
  const std::size_t warnings = log.getCount(VornSeverity::warning);
  if (status == kDone) {
    const bool isNo = common.failOnWarning && warnings > 0;
    status = isNo ? kAnswerIsNo : kDone;
    text = isNo ? "done, with warnings" : "done";
  }
  std::ostringstream answer;
  answer << status << ' ' << counts.tables << ' ' << counts.views << ' ' << counts.columns << ' '
         << counts.associations << ' ' << warnings << ' ' << text << '\n';
  if (common.verbose) {
    answer << messages.str();
  }
  return answer.str();
}

// What comes of a worker's end; `messages` are those the worker passed on.
Outcome readEnd(const WorkerEnd& end, double limit, std::string& messages) {
  constexpr int kOutOfTime = 124;  // as of timeout(1)
  constexpr int kKilled = 128;     // as of a shell, plus the signal
  Outcome outcome;
  outcome.seconds = end.seconds;
  std::istringstream answer(end.answer);
  if (end.outOfTime) {
    outcome.status = kOutOfTime;
    std::ostringstream text;
    text << "stopped after " << limit << " s";
    outcome.text = text.str();
  } else if (end.signal != 0) {
    outcome.status = kKilled + end.signal;
    outcome.text = "killed by signal " + std::to_string(end.signal) + " (" + ::strsignal(end.signal) + ")";
  } else if (answer >> outcome.status >> outcome.counts.tables >> outcome.counts.views >>
             outcome.counts.columns >> outcome.counts.associations >> outcome.warnings) {
    answer.ignore();
    std::getline(answer, outcome.text);
    messages.assign(std::istreambuf_iterator<char>(answer), {});
  } else {
    outcome.status = kInternalError;
    outcome.text = "the import broke down";
  }
  return outcome;
}

std::size_t countCharacters(const std::string& utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xc0) != 0x80; }));
}

std::string nameOf(const ImportJob& job) {
  return toPrintableLine(job.source);
}

void printTable(const std::vector<ImportJob>& jobs, const std::vector<Outcome>& outcomes) {
  std::size_t width = 4;
  for (const ImportJob& job : jobs) {
    width = std::max(width, countCharacters(nameOf(job)));
  }
  const auto printRow = [&](const std::string& file, const auto& tables, const auto& columns,
                            const auto& warnings, const std::string& time, const std::string& status) {
    std::cout << file << std::string(width - countCharacters(file), ' ') << std::right << std::setw(8)
              << tables << std::setw(9) << columns << std::setw(10) << warnings << std::setw(10) << time
              << "  " << status << '\n';
  };
  printRow("file", "tables", "columns", "warnings", "time", "status");
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    const Outcome& outcome = outcomes[i];
    std::ostringstream time;
    time << std::fixed << std::setprecision(2) << outcome.seconds << " s";
    if (outcome.isFailure()) {
      printRow(nameOf(jobs[i]), '-', '-', '-', time.str(), "failed (" + std::to_string(outcome.status) + ")");
    } else {
      printRow(nameOf(jobs[i]), outcome.counts.tables, outcome.counts.columns, outcome.warnings, time.str(),
               outcome.text);
    }
  }
}

std::string makeSummary(const std::vector<ImportJob>& jobs, const std::vector<Outcome>& outcomes,
                        std::size_t failures) {
  return makeJson([&](JsonWriter& json) {
    const auto writeNumber = [&](const char* key, std::size_t number) {
      json.Key(key);
      json.Uint64(number);
    };
    json.StartObject();
    writeNumber("done", jobs.size() - failures);
    writeNumber("failed", failures);
    json.Key("exports");
    auto outcome = outcomes.begin();
    writeList(json, jobs, [&](JsonWriter&, const ImportJob& job) {
      writeText(json, "file", nameOf(job));
      json.Key("outputs");
      json.StartArray();
      for (const ImportOutput& output : job.outputs) {
        json.String(toPrintableLine(output.path).c_str());
      }
      json.EndArray();
      writeNumber("tables", outcome->counts.tables);
      writeNumber("columns", outcome->counts.columns);
      writeNumber("warnings", outcome->warnings);
      json.Key("status");
      json.Int(outcome->status);
      writeText(json, "text", outcome->text);
      json.Key("seconds");
      json.Double(static_cast<double>(static_cast<int>(outcome->seconds * 1000)) / 1000);
      ++outcome;
    });
    json.EndObject();
  });
}

void save(const std::string& path, const std::string& content) {
  VornOutputFile file(path);
  file.write(content.data(), content.size());
  file.commit();
}

void makeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    PEMO::CANNOT_WRITE_FILE.throwException({VornString(folder), VornString(error.message())});
  }
}

}  // namespace

std::vector<ImportJob> planBatch(const std::vector<std::string>& sources, const std::string& folder,
                                 const std::vector<VornOutputFormat>& formats) {
  std::vector<ImportJob> jobs;
  for (const std::string& source : sources) {
    ImportJob& job = jobs.emplace_back(ImportJob{source, {}, {}});
    const std::filesystem::path output = std::filesystem::path(folder) / std::filesystem::path(source).stem();
    for (const VornOutputFormat& wanted : formats) {
      const auto all = getModelFormats();
      const auto format = std::find_if(all.begin(), all.end(),
                                       [&](const auto& one) { return one.name == wanted.name.view(); });
      const std::string extension(format == all.end() ? "" : format->extension);
      job.outputs.push_back({output.string() + extension, wanted});
    }
  }
  checkOutputs(jobs, (std::filesystem::path(folder) / kSummary).string());
  return jobs;
}

ExitStatus runBatch(VornImportBridgeDllInterface& bridge, VornOptionList& options,
                    const CommonOptions& common, const std::vector<ImportJob>& jobs,
                    const std::string& folder, const WorkerLimits& limits) {
  std::vector<Outcome> outcomes(jobs.size());
  const std::string summary = (std::filesystem::path(folder) / kSummary).string();
  makeFolder(folder);
  // The one of an earlier batch would not be true any more once this one is interrupted.
  std::error_code notThere;
  std::filesystem::remove(summary, notThere);

  ProgressBar bar(!common.quiet);
  std::size_t ended = 0;
  const auto import = [&](std::size_t job) { return importAsWorker(bridge, options, common, jobs[job]); };
  const auto tell = [&](const WorkerEnd& end) {
    std::string messages;
    const Outcome& outcome = outcomes[end.task] = readEnd(end, limits.seconds, messages);
    bar.clear();
    if (outcome.isFailure()) {
      std::cerr << nameOf(jobs[end.task]) << ": " << outcome.text << '\n';
    } else if (!common.quiet || outcome.warnings > 0) {
      std::cerr << nameOf(jobs[end.task]) << ": "
                << describeImport(outcome.counts, outcome.warnings, outcome.seconds) << '\n';
    }
    std::cerr << messages;
    ++ended;
  };
  runInWorkers(jobs.size(), limits, import, tell, [&] { bar.update("importing", ended, jobs.size()); });
  bar.clear();
  const auto failures = static_cast<std::size_t>(std::count_if(
      outcomes.begin(), outcomes.end(), [](const Outcome& outcome) { return outcome.isFailure(); }));
  save(summary, makeSummary(jobs, outcomes, failures));
  if (!common.quiet) {
    printTable(jobs, outcomes);
    if (!std::cout.flush()) {
      return kCannotWrite;
    }
    std::cerr << jobs.size() - failures << " done, " << failures << " failed; " << toPrintableLine(summary)
              << " has the details\n";
  }
  const bool isNo = std::any_of(outcomes.begin(), outcomes.end(),
                                [](const Outcome& outcome) { return outcome.status == kAnswerIsNo; });
  return failures > 0 ? kSomeFailed : isNo ? kAnswerIsNo : kDone;
}

}  // namespace cli
