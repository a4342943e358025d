// The outcomes of a batch's imports, and the summary with them for readers and for a later batch.
// docs/scale-out.md documents its keys.
#pragma once

#include <rapidjson/document.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/batch_plan.h"
#include "cli/exit_status.h"
#include "cli/import_counts.h"
#include "cli/import_watch.h"
#include "cli/json_output.h"

namespace cli {

// How one import ended.
struct ImportOutcome {
  std::optional<int> status;      // none: it was not finished, or not started
  std::string text = "not done";  // what the status says, or the reason of a failure
  ImportCounts counts;
  std::size_t warnings = 0;
  CountsByName warningsByCode;
  CountsByName droppedByKind;
  double seconds = 0;

  bool isDone() const { return status == kDone || status == kAnswerIsNo; }
  bool isFailure() const { return status && !isDone(); }
};

// Tells a later batch whether an export has changed.
struct ExportState {
  std::uint64_t size = 0;
  std::int64_t modified = 0;  // nanoseconds since 1970
  bool operator==(const ExportState&) const = default;
};

struct BatchEntry {
  // Examines the files now.
  explicit BatchEntry(ImportJob importJob);

  ImportJob job;
  std::optional<ExportState> state;  // none of what is no regular file, or not there
  EarlierOutputs earlier;
  ImportOutcome outcome;
  bool isOfEarlierBatch = false;  // so that nothing is to be done
};

struct BatchCounts {
  std::size_t done = 0;  // in an earlier batch, too
  std::size_t failed = 0;
  std::size_t notDone = 0;
  std::size_t ofEarlierBatch = 0;
};
BatchCounts countOutcomes(const std::vector<BatchEntry>& entries);

// Writes and reads an outcome as members of a JSON object. Missing members keep their defaults.
void writeOutcome(JsonWriter& json, const ImportOutcome& outcome);
ImportOutcome readOutcome(const rapidjson::Value& object);

std::string makeSummary(const BatchArguments& arguments, const std::vector<BatchEntry>& entries);

// Takes over from the summary of an earlier batch, where there is one, what it says of the exports that were
// done and have not changed since, with all their outputs. Throws UsageError for a file that is no summary.
// False, with nothing taken over, when that batch had other options.
bool takeOverEarlierBatch(const BatchArguments& arguments, std::vector<BatchEntry>& entries);

}  // namespace cli
