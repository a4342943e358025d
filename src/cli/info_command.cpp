#include <CLI/CLI.hpp>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/input_look.h"
#include "cli/json_output.h"
#include "cli/likely_encoding.h"
#include "cli/option_values.h"
#include "cli/target_system_hint.h"
#include "host/base/exception.h"
#include "host/base/import_observer.h"
#include "host/base/irregularity.h"
#include "host/base/unicode.h"
#include "host/metamodel/store_model.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/plugin/model_destination.h"

namespace cli {

namespace {

// What an import tells of an export while it is at it.
struct ExportFacts {
  struct Section {
    int number;
    std::string name;
    std::size_t read, kept, dropped;
  };

  struct Irregularities {
    std::size_t count = 0;
    std::string firstPlace;  // "columns (section 7), record 2 at byte 71"
  };

  std::string model;
  std::string targetSystem;  // empty: none known
  std::vector<std::string> schemas;
  std::vector<Section> sections;
  std::map<std::string, Irregularities> irregularities;  // by kind
  std::size_t warnings = 0;
  std::optional<std::size_t> bytes;  // none of a pipe, which can be read only once
  LikelyEncoding encoding;
  std::optional<VornTargetSystem> unknownSystem;
  std::vector<VornTargetSystem> nearSystems;  // those that are known
};

// Collects the facts of an import, which saves nothing.
class FactsCollector final : public VornImportObserver, public VornModelDestination {
 public:
  explicit FactsCollector(VornLog& log) : log_(log) { log.setObserver(*this); }

  bool wantsIrregularities() const override { return true; }
  void irregular(const VornIrregularity& irregularity) override {
    auto& [count, firstPlace] = facts.irregularities[std::string(irregularity.kind)];
    if (count++ == 0) {
      firstPlace = describePlace(irregularity);
    }
  }
  void recordsCounted(const VornRecordCount& count) override {
    facts.sections.push_back(
        {count.section, std::string(count.sectionName), count.read, count.kept, count.dropped});
  }
  void save(VornStoreModel& model, VornLog& /*log*/) override {
    facts.model = model.getName().view();
    facts.targetSystem = model.dataStoreVersionName.view();
    for (const VornDataPackage* package : model.dataPackageCollection) {
      facts.schemas.emplace_back(package->getName().view());
    }
  }

  void targetSystemUnknown(const VornString& name, const VornString& version) override {
    facts.unknownSystem =
        VornTargetSystem{.name = VornString(std::string_view(log_.decode(name.view()))),
                         .version = VornString(std::string_view(log_.decode(version.view()))),
                         .dataStore = {},
                         .dataStoreVersion = {},
                         .hostName = {}};
  }

  ExportFacts facts;

 private:
  VornLog& log_;
};

std::string toUtf8(const std::string& text) {
  return isUtf8(text) ? text : latin1ToUtf8(text);
}

void writeCount(JsonWriter& json, const char* key, std::size_t count) {
  json.Key(key);
  json.Uint64(count);
}

void writeSection(JsonWriter& json, const ExportFacts::Section& section) {
  json.StartObject();
  json.Key("section");
  json.Int(section.number);
  writeText(json, "sectionName", section.name);
  writeCount(json, "read", section.read);
  writeCount(json, "kept", section.kept);
  writeCount(json, "dropped", section.dropped);
  json.EndObject();
}

void writeEncoding(JsonWriter& json, const LikelyEncoding& encoding) {
  json.Key("likelyEncoding");
  if (encoding.letters == 0) {
    json.Null();
    return;
  }
  json.StartObject();
  json.Key("name");
  if (encoding.ground == EncodingGround::tooFew) {
    json.Null();
  } else {
    json.String(encoding.name.c_str());
  }
  json.Key("confidence");
  json.Int(encoding.ground == EncodingGround::tooFew ? 0 : encoding.confidence);
  writeCount(json, "letters", encoding.letters);
  json.EndObject();
}

void writeSystem(JsonWriter& json, const VornTargetSystem& system) {
  writeText(json, "name", system.name.view());
  writeText(json, "version", system.version.view());
}

void writeUnknownSystem(JsonWriter& json, const ExportFacts& facts) {
  json.Key("unknownTargetSystem");
  if (!facts.unknownSystem) {
    json.Null();
    return;
  }
  json.StartObject();
  writeSystem(json, *facts.unknownSystem);
  json.Key("nearest");
  writeList(json, facts.nearSystems, writeSystem);
  json.EndObject();
}

void printAsJson(const std::string& path, const ExportFacts& facts) {
  printJson([&](JsonWriter& json) {
    json.StartObject();
    writeText(json, "file", toUtf8(path));
    json.Key("bytes");
    if (facts.bytes) {
      json.Uint64(*facts.bytes);
    } else {
      json.Null();
    }
    writeText(json, "model", toUtf8(facts.model));
    writeText(json, "targetSystem", facts.targetSystem);
    writeUnknownSystem(json, facts);
    writeEncoding(json, facts.encoding);
    json.Key("schemas");
    json.StartArray();
    for (const std::string& schema : facts.schemas) {
      json.String(toUtf8(schema).c_str());
    }
    json.EndArray();
    json.Key("sections");
    json.StartArray();
    for (const auto& section : facts.sections) {
      writeSection(json, section);
    }
    json.EndArray();
    json.Key("irregularities");
    json.StartObject();
    for (const auto& [kind, found] : facts.irregularities) {
      writeCount(json, kind.c_str(), found.count);
    }
    json.EndObject();
    json.Key("firstIrregularities");
    json.StartObject();
    for (const auto& [kind, found] : facts.irregularities) {
      writeText(json, kind.c_str(), found.firstPlace);
    }
    json.EndObject();
    writeCount(json, "warnings", facts.warnings);
    json.EndObject();
  });
}

void printFact(const char* label, const std::string& value) {
  std::cout << std::left << std::setw(17) << label << std::right << toPrintableLine(value) << '\n';
}

std::string toLine(const std::vector<std::string>& names) {
  const auto show = [](const std::string& name) { return name.empty() ? "(default)" : name; };
  return names.empty() ? "none" : join(names, ", ", show);
}

std::string describe(const LikelyEncoding& encoding) {
  const std::string count = std::to_string(encoding.letters);
  switch (encoding.ground) {
    case EncodingGround::asciiOnly:
      return "any: all bytes are ASCII";
    case EncodingGround::tooFew:
      return "undecided: too few non-ASCII " + std::string(encoding.isChoice ? "characters" : "bytes") +
             " (" + count + ")";
    case EncodingGround::validUtf8:
      return encoding.name + ": all " + count + " non-ASCII characters are valid (see --encoding)";
    case EncodingGround::detector:
      return encoding.isChoice ? encoding.name + ", " + std::to_string(encoding.confidence) +
                                     " of 100 (a hint: see --encoding)"
                               : encoding.name + ", which imports cannot read";
    case EncodingGround::unreadable:
      break;
  }
  return "unknown: a pipe can be read only once";
}

void printAsText(const std::string& path, const ExportFacts& facts) {
  const std::string shown = path == VornFile::kStandardInput ? "standard input" : path;
  printFact("File", shown + ", " + (facts.bytes ? std::to_string(*facts.bytes) + " bytes" : "a pipe"));
  printFact("Model", facts.model);
  printFact("Target system", facts.targetSystem.empty() ? "none known" : facts.targetSystem);
  if (facts.unknownSystem) {
    const std::string nearest = listSystems(facts.nearSystems);
    printFact("Unknown system",
              listSystems({*facts.unknownSystem}) + "; " +
                  (nearest.empty() ? "`vorn bridge systems` lists the known ones" : "near it: " + nearest));
  }
  printFact("Likely encoding", describe(facts.encoding));
  printFact("Schemas", toLine(facts.schemas));
  printFact("Warnings", std::to_string(facts.warnings));

  const auto printRow = [](int section, const std::string& name, auto read, auto kept, auto dropped) {
    std::cout << std::setw(7) << section << "  " << std::left << std::setw(20) << name << std::right
              << std::setw(9) << read << std::setw(9) << kept << std::setw(9) << dropped << '\n';
  };
  std::cout << "\nSection  Records                  read     kept  dropped\n";
  for (const auto& section : facts.sections) {
    printRow(section.number, section.name, section.read, section.kept, section.dropped);
  }
  std::cout << "\nIrregularities" << (facts.irregularities.empty() ? ": none\n" : "\n");
  for (const auto& [kind, found] : facts.irregularities) {
    std::cout << "  " << std::left << std::setw(36) << kind << std::right << std::setw(9) << found.count
              << "  first: " << found.firstPlace << '\n';
  }
}

struct InfoArguments {
  std::string source;
  std::string encoding;
  bool asJson = false;
  bool force = false;
};

void findNearSystems(VornImportBridgeDllInterface& bridge, ExportFacts& facts) {
  auto* const catalogue = dynamic_cast<VornTargetSystemCatalogue*>(&bridge);
  if (catalogue != nullptr && facts.unknownSystem) {
    facts.nearSystems =
        findNearestSystems(std::string(facts.unknownSystem->name.view()),
                           std::string(facts.unknownSystem->version.view()), catalogue->getTargetSystems());
  }
}

ExitStatus runInfo(const CommonOptions& common, const InfoArguments& arguments) {
  const std::string& source = arguments.source;
  if (source.empty()) {
    throw UsageError("the name of the export is empty");
  }
  const VornBridgeLibrary library(findBridge(common));
  VornImportBridgeDllInterface& bridge = library.getInterface();
  VornOptionList options;
  bridge.getOptionList(options);
  setOption(options, "File", source);
  const InputLook look{.force = arguments.force, .detectsEncoding = arguments.encoding == kDetectedEncoding};
  if (!arguments.encoding.empty() && !look.detectsEncoding) {
    setOption(options, "Encoding", arguments.encoding, "--encoding");
  }
  VornStreamLog log(std::cerr);
  log.setLevel(common.verbose ? VornSeverity::debug : VornSeverity::error);
  FactsCollector collector(log);
  ExportFacts& facts = collector.facts;
  VornFile output;
  output.setDestination(collector);
  try {
    if (!bridge.test(kImporter, options, log)) {
      return kBadInput;
    }
    if (const ExitStatus status = lookAtInput(bridge, options, look, log, &facts.encoding); status != kDone) {
      return status;
    }
    bridge.run(kImporter, output, options, log);
  } catch (const VornException& problem) {
    log.write(problem.getSeverity(), problem.getCode(), problem.getFullText());
    return statusOf(problem);
  }
  facts.warnings = log.getCount(VornSeverity::warning);
  std::error_code noRegularFile;
  const auto bytes = std::filesystem::file_size(source, noRegularFile);
  if (!noRegularFile) {
    facts.bytes = bytes;
  }
  findNearSystems(bridge, facts);
  (arguments.asJson ? printAsJson : printAsText)(source, facts);
  if (!std::cout.flush()) {
    return kCannotWrite;
  }
  return common.failOnWarning && facts.warnings > 0 ? kAnswerIsNo : kDone;
}

}  // namespace

void addInfoCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command = app.add_subcommand("info", "Show what is in an export; save nothing");
  const auto arguments = std::make_shared<InfoArguments>();
  command->add_option("EXPORT", arguments->source, "The TXT export, or - for standard input")
      ->required()
      ->type_name("FILE");
  command
      ->add_option("--encoding", arguments->encoding,
                   "The export's encoding, such as cp850 (default: windows-1252), or auto to detect it")
      ->type_name("ENCODING");
  command->add_flag("--force", arguments->force, "Read the file even if it is damaged or not an export");
  command->add_flag("--json", arguments->asJson, "Print JSON");
  command->footer("Example: vorn info bookshop.txt");
  command->callback([&common, &status, arguments] { status = runInfo(common, *arguments); });
}

}  // namespace cli
