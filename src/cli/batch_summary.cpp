#include "cli/batch_summary.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "cli/commands.h"
#include "host/base/unicode.h"

namespace cli {

namespace {

// What is put behind the key of a name that is not UTF-8, for its exact form.
constexpr const char* kExactly = "PercentEncoded";

std::optional<ExportState> examine(const std::string& path) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  return ExportState{static_cast<std::uint64_t>(status.st_size),
                     status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

// As in a URL: every byte but unreserved ones and "/".
std::string encodePercent(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
  std::string encoded;
  for (const char byte : bytes) {
    if (kPlain.find(byte) != std::string_view::npos) {
      encoded += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      encoded += {'%', kDigits[value / 16], kDigits[value % 16]};
    }
  }
  return encoded;
}

// Names are bytes: one that is UTF-8 is its own text, any other gets a readable form and an exact one.
void writeName(JsonWriter& json, const std::string& key, const std::string& name) {
  const bool isText = isUtf8(name);
  writeText(json, key.c_str(), isText ? name : toPrintableLine(name));
  if (!isText) {
    writeText(json, (key + kExactly).c_str(), encodePercent(name));
  }
}

void writeNames(JsonWriter& json, const std::string& key, const std::vector<std::string>& names) {
  const auto writeArray = [&](const std::string& arrayKey, auto form) {
    json.Key(arrayKey.c_str());
    json.StartArray();
    for (const std::string& name : names) {
      const std::string text = form(name);
      json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    }
    json.EndArray();
  };
  writeArray(key, [](const std::string& name) { return isUtf8(name) ? name : toPrintableLine(name); });
  if (!std::ranges::all_of(names, isUtf8)) {
    writeArray(key + kExactly, encodePercent);
  }
}

void writeMember(JsonWriter& json, const char* key, std::uint64_t number) {
  json.Key(key);
  json.Uint64(number);
}

void writeMember(JsonWriter& json, const char* key, const CountsByName& counts) {
  json.Key(key);
  json.StartObject();
  for (const auto& [name, count] : counts) {
    writeMember(json, name.c_str(), count);
  }
  json.EndObject();
}

std::vector<std::string> getOutputPaths(const ImportJob& job) {
  std::vector<std::string> paths;
  for (const VornModelOutput& output : job.outputs) {
    paths.push_back(output.path);
  }
  return paths;
}

// What tells one export's import: the same in the earlier batch, and nothing is to be done again.
void writeTask(JsonWriter& json, const BatchEntry& entry) {
  writeName(json, "file", entry.job.source);
  if (entry.state) {
    writeMember(json, "size", entry.state->size);
    json.Key("modified");
    json.Int64(entry.state->modified);
  }
  writeNames(json, "outputs", getOutputPaths(entry.job));
  if (!entry.job.report.empty()) {
    writeName(json, "report", entry.job.report);
  }
}

void writeOptions(JsonWriter& json, const BatchArguments& arguments) {
  json.StartObject();
  for (const auto& [name, values] : arguments.options) {
    writeNames(json, name, values);
  }
  json.EndObject();
}

void writeEntry(JsonWriter& json, const BatchEntry& entry) {
  writeTask(json, entry);
  writeOutcome(json, entry.outcome);
  if (entry.isOfEarlierBatch) {
    json.Key("earlierBatch");
    json.Bool(true);
  }
  if (!entry.outcome.isDone()) {
    if (const auto standing = entry.earlier.getUntouched(); !standing.empty()) {
      writeNames(json, "ofEarlierImport", standing);
    }
  }
}

const rapidjson::Value* findMember(const rapidjson::Value& object, const char* key) {
  const auto member = object.FindMember(key);
  return member == object.MemberEnd() ? nullptr : &member->value;
}

void readMember(const rapidjson::Value& object, const char* key, std::size_t& number) {
  if (const auto* value = findMember(object, key); value != nullptr && value->IsUint64()) {
    number = value->GetUint64();
  }
}

void readText(const rapidjson::Value& object, const char* key, std::string& text) {
  if (const auto* value = findMember(object, key); value != nullptr && value->IsString()) {
    text.assign(value->GetString(), value->GetStringLength());
  }
}

void readMember(const rapidjson::Value& object, const char* key, CountsByName& counts) {
  const auto* value = findMember(object, key);
  if (value == nullptr || !value->IsObject()) {
    return;
  }
  for (const auto& member : value->GetObject()) {
    if (member.value.IsUint64()) {
      counts[member.name.GetString()] = member.value.GetUint64();
    }
  }
}

// Calls `visit` with the key of each count, in the summary's order, and the count itself.
template <class Outcome, class Visit>
void forEachCount(Outcome& outcome, Visit visit) {
  visit("tables", outcome.counts.tables);
  visit("views", outcome.counts.views);
  visit("columns", outcome.counts.columns);
  visit("associations", outcome.counts.associations);
  visit("warnings", outcome.warnings);
  visit("warningsByCode", outcome.warningsByCode);
  visit("droppedByKind", outcome.droppedByKind);
}

// What an earlier batch's entry begins with is, member by member, what this batch would write.
bool isSameTask(const rapidjson::Value& earlier, const rapidjson::Value& task) {
  return std::ranges::all_of(task.GetObject(), [&](const auto& member) {
    const auto* value = findMember(earlier, member.name.GetString());
    return value != nullptr && *value == member.value;
  });
}

rapidjson::Document parse(const std::string& text) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
  return document;
}

template <class Fill>
rapidjson::Document makeObject(Fill fill) {
  return parse(makeJson([&](JsonWriter& json) {
    json.StartObject();
    fill(json);
    json.EndObject();
  }));
}

// By what both batches call the export.
std::string getKey(const rapidjson::Value& entry) {
  std::string key;
  readText(entry, "file", key);
  readText(entry, (std::string("file") + kExactly).c_str(), key);
  return key;
}

}  // namespace

BatchEntry::BatchEntry(ImportJob importJob)
    : job(std::move(importJob)), state(examine(job.source)), earlier(job) {
}

BatchCounts countOutcomes(const std::vector<BatchEntry>& entries) {
  BatchCounts counts;
  for (const BatchEntry& entry : entries) {
    ++(entry.outcome.isDone() ? counts.done : entry.outcome.isFailure() ? counts.failed : counts.notDone);
    counts.ofEarlierBatch += static_cast<std::size_t>(entry.isOfEarlierBatch);
  }
  return counts;
}

void writeOutcome(JsonWriter& json, const ImportOutcome& outcome) {
  forEachCount(outcome, [&](const char* key, const auto& count) { writeMember(json, key, count); });
  json.Key("status");
  if (outcome.status) {
    json.Int(*outcome.status);
  } else {
    json.Null();
  }
  writeText(json, "text", outcome.text);
  json.Key("seconds");
  json.Double(std::floor(outcome.seconds * 1000) / 1000);
}

ImportOutcome readOutcome(const rapidjson::Value& object) {
  ImportOutcome outcome;
  forEachCount(outcome, [&](const char* key, auto& count) { readMember(object, key, count); });
  if (const auto* status = findMember(object, "status"); status != nullptr && status->IsInt()) {
    outcome.status = status->GetInt();
  }
  readText(object, "text", outcome.text);
  if (const auto* seconds = findMember(object, "seconds"); seconds != nullptr && seconds->IsNumber()) {
    outcome.seconds = seconds->GetDouble();
  }
  return outcome;
}

std::string makeSummary(const BatchArguments& arguments, const std::vector<BatchEntry>& entries) {
  return makeJson([&](JsonWriter& json) {
    const BatchCounts counts = countOutcomes(entries);
    json.StartObject();
    writeMember(json, "done", counts.done);
    writeMember(json, "failed", counts.failed);
    writeMember(json, "notDone", counts.notDone);
    json.Key("options");
    writeOptions(json, arguments);
    json.Key("exports");
    writeList(json, entries, writeEntry);
    json.EndObject();
  });
}

bool takeOverEarlierBatch(const BatchArguments& arguments, std::vector<BatchEntry>& entries) {
  const std::string path = getSummaryPath(arguments);
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    return true;
  }
  const rapidjson::Document summary = parse({std::istreambuf_iterator<char>(file), {}});
  const bool isSummary = summary.IsObject() && summary.HasMember("options") && summary.HasMember("exports") &&
                         summary["exports"].IsArray();
  if (!isSummary) {
    throw UsageError("'" + path + "' is not the summary of a batch, so there is nothing to resume");
  }
  if (parse(makeJson([&](JsonWriter& json) { writeOptions(json, arguments); })) != summary["options"]) {
    return false;
  }
  std::map<std::string, const rapidjson::Value*> earlier;
  for (const rapidjson::Value& entry : summary["exports"].GetArray()) {
    if (entry.IsObject()) {
      earlier.emplace(getKey(entry), &entry);
    }
  }
  for (BatchEntry& entry : entries) {
    const auto task = makeObject([&](JsonWriter& json) { writeTask(json, entry); });
    const auto found = earlier.find(getKey(task));
    if (found == earlier.end() || !entry.state || !entry.earlier.isComplete() ||
        !isSameTask(*found->second, task)) {
      continue;
    }
    if (ImportOutcome outcome = readOutcome(*found->second); outcome.isDone()) {
      entry.outcome = std::move(outcome);
      entry.isOfEarlierBatch = true;
    }
  }
  return true;
}

}  // namespace cli
