#include "cli/batch.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "cli/batch_summary.h"
#include "cli/import_log.h"
#include "cli/process.h"
#include "host/base/exception.h"
#include "host/base/output_file.h"
#include "host/base/pemo.h"
#include "host/base/unicode.h"

namespace cli {

namespace {

// Says whether the warnings are a reason to look at what was done.
void judge(ImportOutcome& outcome, bool failOnWarning) {
  const bool isNo = failOnWarning && outcome.warnings > 0;
  outcome.status = isNo ? kAnswerIsNo : kDone;
  outcome.text = isNo ? "done, with warnings" : "done";
}

// In the worker: imports and tells, as JSON, the outcome and the messages.
std::string importAsWorker(VornImportBridgeDllInterface& bridge, VornOptionList& options,
                           const CommonOptions& common, const ImportJob& job) {
  std::ostringstream messages;
  ImportLog log(messages, false);
  ImportWatch watch(log);
  log.setLevel(common.verbose ? VornSeverity::debug : VornSeverity::warning);
  watch.countDropped();
  log.countWarnings(common.verbose ? VornSeverity::debug : VornSeverity::error);
  ImportOutcome outcome;
  outcome.status = kInternalError;
  try {
    const ImportResult result = runImport(bridge, options, job, log, watch);
    outcome.status = result.status;
    outcome.counts = result.counts;
    outcome.text = log.getError();
  } catch (const std::exception& problem) {
    outcome.text = toPrintableLine(problem.what());
  }
  outcome.warnings = log.getCount(VornSeverity::warning);
  outcome.warningsByCode = log.getWarningsByCode();
  outcome.droppedByKind = watch.getDroppedByKind();
  if (outcome.status == kDone) {
    judge(outcome, common.failOnWarning);
  }
  return makeJson([&](JsonWriter& json) {
    json.StartObject();
    writeOutcome(json, outcome);
    writeText(json, "messages", common.verbose ? messages.str() : "");
    json.EndObject();
  });
}

// What comes of a worker's end; `messages` are those the worker passed on.
ImportOutcome readEnd(const WorkerEnd& end, double limit, std::string& messages) {
  constexpr int kOutOfTime = 124;  // as of timeout(1)
  constexpr int kKilled = 128;     // as of a shell, plus the signal
  ImportOutcome outcome;
  rapidjson::Document answer;
  // A terminal asks all processes to end, and not this one alone.
  if (end.stopped || (end.signal != 0 && end.signal == getDeferredSignal())) {
    outcome.text = "not done: interrupted";
  } else if (end.outOfTime) {
    outcome.status = kOutOfTime;
    std::ostringstream text;
    text << "stopped after " << limit << " s";
    outcome.text = text.str();
  } else if (end.signal != 0) {
    outcome.status = kKilled + end.signal;
    outcome.text = "killed by signal " + std::to_string(end.signal) + " (" + ::strsignal(end.signal) + ")";
  } else if (!answer.Parse(end.answer.data(), end.answer.size()).HasParseError()) {
    outcome = readOutcome(answer);
    messages = answer["messages"].GetString();
  } else {
    outcome.status = kInternalError;
    outcome.text = "the import crashed";
  }
  outcome.seconds = end.seconds;
  return outcome;
}

std::size_t countCharacters(const std::string& utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xc0) != 0x80; }));
}

std::string nameOf(const ImportJob& job) {
  return toPrintableLine(job.source);
}

// "; from an earlier import: x.json"; empty where there is none.
std::string describeUntouched(const EarlierOutputs& earlier) {
  std::string text;
  for (const std::string& path : earlier.getUntouched()) {
    text += (text.empty() ? "; from an earlier import: " : ", ") + toPrintableLine(path);
  }
  return text;
}

std::string describeStatus(const BatchEntry& entry) {
  const ImportOutcome& outcome = entry.outcome;
  const std::string status = entry.isOfEarlierBatch ? outcome.text + " in an earlier batch"
                             : outcome.isFailure()  ? "failed (" + std::to_string(*outcome.status) + ")"
                                                    : outcome.text;
  return outcome.isDone() ? status : status + describeUntouched(entry.earlier);
}

void printTable(const std::vector<BatchEntry>& entries) {
  std::size_t width = 4;
  for (const BatchEntry& entry : entries) {
    width = std::max(width, countCharacters(nameOf(entry.job)));
  }
  const auto printRow = [&](const std::string& file, const auto& tables, const auto& columns,
                            const auto& warnings, const std::string& time, const std::string& status) {
    std::cout << file << std::string(width - countCharacters(file), ' ') << std::right << std::setw(8)
              << tables << std::setw(9) << columns << std::setw(10) << warnings << std::setw(10) << time
              << "  " << status << '\n';
  };
  printRow("file", "tables", "columns", "warnings", "time", "status");
  for (const BatchEntry& entry : entries) {
    const ImportOutcome& outcome = entry.outcome;
    std::ostringstream time;
    time << std::fixed << std::setprecision(2) << outcome.seconds << " s";
    const std::string name = nameOf(entry.job);
    if (outcome.isDone()) {
      printRow(name, outcome.counts.tables, outcome.counts.columns, outcome.warnings, time.str(),
               describeStatus(entry));
    } else {
      printRow(name, '-', '-', '-', time.str(), describeStatus(entry));
    }
  }
}

// Puts the name of the export in front of each message of its import.
void printMessages(const std::string& name, const std::string& messages) {
  std::istringstream lines(messages);
  for (std::string line; std::getline(lines, line);) {
    std::cerr << name << ": " << line << '\n';
  }
}

void printEnd(const BatchEntry& entry, bool quiet) {
  const ImportOutcome& outcome = entry.outcome;
  if (!outcome.isDone()) {
    std::cerr << nameOf(entry.job) << ": " << outcome.text << describeUntouched(entry.earlier) << '\n';
  } else if (!quiet || outcome.warnings > 0) {
    std::cerr << nameOf(entry.job) << ": "
              << describeImport(outcome.counts, outcome.warnings, outcome.seconds) << '\n';
  }
}

void printTotals(const BatchCounts& counts, const std::string& summary) {
  std::cerr << counts.done << " done";
  if (counts.ofEarlierBatch > 0) {
    std::cerr << " (" << counts.ofEarlierBatch << " in an earlier batch)";
  }
  std::cerr << ", " << counts.failed << " failed";
  if (counts.notDone > 0) {
    std::cerr << ", " << counts.notDone << " not done";
  }
  std::cerr << "; " << toPrintableLine(summary) << " has the details\n";
}

void makeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    PEMO::CANNOT_WRITE_FILE.throwException({VornString(folder.string()), VornString(error.message())});
  }
}

void makeFolders(const BatchArguments& arguments, const std::vector<BatchEntry>& entries) {
  makeFolder(arguments.folder);
  for (const BatchEntry& entry : entries) {
    if (!entry.isOfEarlierBatch) {
      makeFolder(std::filesystem::path(entry.job.outputs.front().path).parent_path());
      if (!entry.job.report.empty()) {
        makeFolder(std::filesystem::path(entry.job.report).parent_path());
      }
    }
  }
}

// The summary's file, which is kept as true as can be had cheaply: what is killed without a warning can be
// taken up, too.
class SummaryFile {
 public:
  SummaryFile(const BatchArguments& arguments, const std::vector<BatchEntry>& entries)
      : arguments_(arguments), entries_(entries) {}

  void save() {
    constexpr int kShare = 50;  // of the time, for what is written only in case
    const auto start = Clock::now();
    const std::string content = makeSummary(arguments_, entries_);
    VornOutputFile file(getSummaryPath(arguments_));
    file.write(content.data(), content.size());
    file.commit();
    next_ = Clock::now() + std::chrono::seconds(1) + kShare * (Clock::now() - start);
  }
  void saveNowAndThen() {
    if (Clock::now() < next_) {
      return;
    }
    try {
      save();
    } catch (const VornException&) {
      // Of a shortage while workers run, the last summary need not know; of anything else it tells.
    }
  }

 private:
  using Clock = std::chrono::steady_clock;

  const BatchArguments& arguments_;
  const std::vector<BatchEntry>& entries_;
  Clock::time_point next_;
};

std::vector<BatchEntry> makeEntries(const BatchArguments& arguments, const CommonOptions& common) {
  std::vector<BatchEntry> entries;
  for (ImportJob& job : planBatch(arguments)) {
    entries.emplace_back(std::move(job));
  }
  if (arguments.resumes && !takeOverEarlierBatch(arguments, entries)) {
    std::cerr << "The earlier batch had other options: everything is imported again\n";
  }
  for (BatchEntry& entry : entries) {
    if (entry.isOfEarlierBatch) {
      judge(entry.outcome, common.failOnWarning);
    }
  }
  return entries;
}

}  // namespace

ExitStatus runBatch(VornImportBridgeDllInterface& bridge, VornOptionList& options,
                    const CommonOptions& common, const BatchArguments& arguments,
                    const WorkerLimits& limits) {
  std::vector<BatchEntry> entries = makeEntries(arguments, common);
  makeFolders(arguments, entries);
  std::vector<BatchEntry*> tasks;
  for (BatchEntry& entry : entries) {
    if (!entry.isOfEarlierBatch) {
      tasks.push_back(&entry);
    }
  }
  deferEnding();
  SummaryFile summary(arguments, entries);
  summary.save();

  ProgressBar bar(!common.quiet);
  std::size_t ended = 0;
  const auto import = [&](std::size_t task) {
    return importAsWorker(bridge, options, common, tasks[task]->job);
  };
  const auto tell = [&](const WorkerEnd& end) {
    std::string messages;
    BatchEntry& entry = *tasks[end.task];
    entry.outcome = readEnd(end, limits.seconds, messages);
    bar.clear();
    printMessages(nameOf(entry.job), messages);
    printEnd(entry, common.quiet);
    ++ended;
    summary.saveNowAndThen();
  };
  runInWorkers(tasks.size(), limits, import, tell, [&] {
    bar.update("importing", ended, tasks.size());
    return getDeferredSignal() == 0;
  });
  bar.clear();
  summary.save();
  const BatchCounts counts = countOutcomes(entries);
  if (!common.quiet) {
    printTable(entries);
    std::cout.flush();
    printTotals(counts, getSummaryPath(arguments));
  }
  if (const int signal = getDeferredSignal(); signal != 0) {
    endOn(signal);
    static_cast<void>(std::raise(signal));
  }
  if (!std::cout) {
    return kCannotWrite;
  }
  const bool isNo = std::ranges::any_of(
      entries, [](const BatchEntry& entry) { return entry.outcome.status == kAnswerIsNo; });
  return counts.failed > 0 ? kSomeFailed : isNo ? kAnswerIsNo : kDone;
}

}  // namespace cli
