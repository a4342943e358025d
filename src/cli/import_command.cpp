#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "cli/batch.h"
#include "cli/commands.h"
#include "cli/import_job.h"
#include "cli/import_log.h"
#include "cli/option_values.h"
#include "cli/suggestion.h"
#include "host/modelbridge/bridge_library.h"
#include "host/modelbridge/dll_interface.h"
#include "host/std/output_file.h"
#include "host/writers/common/dialects.h"
#include "host/writers/common/type_rules.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

struct ImportArguments {
  std::vector<std::string> sources;
  std::vector<std::string> outputs;
  std::vector<std::string> formats;
  std::string dialect;
  std::string names = "physical";
  bool quote = false;
  std::string views = "safe";
  std::string typeRules;      // a file
  std::string typeRulesText;  // what is in it
  std::string decimals = "integers";
  bool drops = false;
  bool isTransaction = false;
  std::string folder;  // for a batch
  unsigned workers = std::max(1U, std::thread::hardware_concurrency());
  unsigned timeout = 600;  // seconds for each import of a batch
  std::string roleNames;
  std::string encoding;
  std::string openMode;
  std::string toolVersion;
  std::string report;                // empty for none
  std::vector<std::string> options;  // NAME=VALUE
};

void setOptions(VornOptionList& options, const ImportArguments& arguments) {
  for (const std::string& assignment : arguments.options) {
    setOption(options, assignment);
  }
  const auto setWhenGiven = [&](const char* name, const std::string& value) {
    if (!value.empty()) {
      setOption(options, name, value);
    }
  };
  setWhenGiven("Role Name Location", arguments.roleNames);
  setWhenGiven("Encoding", arguments.encoding);
  setWhenGiven("Open Mode", arguments.openMode);
  setWhenGiven("Version", arguments.toolVersion);
}

// The form of an output, as its format's name (which may be empty) and the choices for all outputs tell it.
VornOutputFormat makeFormat(const ImportArguments& arguments, const std::string& name) {
  return {.name = VornString(std::string_view(name)),
          .dialect = VornString(std::string_view(arguments.dialect)),
          .logicalNames = arguments.names == "logical",
          .quoteAll = arguments.quote,
          .typeRules = VornString(std::string_view(arguments.typeRulesText)),
          .keepsDecimals = arguments.decimals == "keep",
          .drops = arguments.drops,
          .isTransaction = arguments.isTransaction,
          .everyView = arguments.views == "always"};
}

void checkDialect(const std::string& dialect) {
  if (dialect.empty() || findSqlDialect(dialect) != nullptr) {
    return;
  }
  std::vector<std::string> names;
  for (const SqlDialect& known : getSqlDialects()) {
    names.emplace_back(known.name);
  }
  throw UsageError("there is no dialect '" + dialect + "': `vorn dialects` lists them" +
                   suggest(dialect, names));
}

// Reads the user's type rules. Throws UsageError with all that is wrong in them.
std::string readTypeRulesFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!file) {
    throw UsageError("Cannot read '" + path + "': " + std::generic_category().message(errno));
  }
  std::vector<std::string> problems;
  readTypeRules(text, problems);
  if (problems.empty()) {
    return text;
  }
  std::string all;
  for (const std::string& problem : problems) {
    all += (all.empty() ? "" : "\n") + path + ", " + problem;
  }
  throw UsageError(all);
}

// The job of a command line that names its outputs.
ImportJob planImport(const ImportArguments& arguments) {
  if (arguments.sources.size() > 1) {
    throw UsageError("several exports need a folder for their models: -O FOLDER");
  }
  if (arguments.formats.size() > 1) {
    throw UsageError("-t names the one format of all outputs; only with -O there may be several");
  }
  ImportJob job{arguments.sources.front(), {}, arguments.report};
  const std::string format = arguments.formats.empty() ? "" : arguments.formats.front();
  for (const std::string& path : arguments.outputs) {
    const bool toStandardOutput = path == VornOutputFile::kStandardOutput;
    job.outputs.push_back(
        {path, makeFormat(arguments, format.empty() && toStandardOutput ? "json" : format)});
  }
  checkOutputs({job}, "");
  return job;
}

ExitStatus importOne(VornImportBridgeDllInterface& bridge, VornOptionList& options,
                     const CommonOptions& common, const ImportJob& job) {
  ImportLog log(std::cerr, !common.quiet);
  log.setLevel(common.quiet     ? VornSeverity::warning
               : common.verbose ? VornSeverity::debug
                                : VornSeverity::status);
  if (const ExitStatus status = runImport(bridge, options, job, log); status != kDone) {
    return status;
  }
  log.endProgress();
  const std::size_t warnings = log.getCount(VornSeverity::warning);
  if (!common.quiet) {
    const ImportCounts& counts = log.getCounts();
    std::cerr << describeImport(counts, warnings, log.getSeconds()) << '\n';
    if (job.report.empty() && (log.hasBridgeWarned() || counts.tables + counts.views == 0)) {
      std::cerr << "vorn info tells what was read and what was dropped, --report FILE record by record\n";
    }
  }
  return common.failOnWarning && warnings > 0 ? kAnswerIsNo : kDone;
}

ExitStatus runImportCommand(const CommonOptions& common, ImportArguments& arguments) {
  checkDialect(arguments.dialect);
  if (!arguments.typeRules.empty()) {
    arguments.typeRulesText = readTypeRulesFile(arguments.typeRules);
  }
  const VornBridgeLibrary library(findBridge(common));
  VornImportBridgeDllInterface& bridge = library.getInterface();
  VornOptionList options;
  bridge.getOptionList(options);
  setOptions(options, arguments);
  if (arguments.folder.empty()) {
    return importOne(bridge, options, common, planImport(arguments));
  }
  std::vector<VornOutputFormat> formats;
  for (const std::string& name : arguments.formats) {
    formats.push_back(makeFormat(arguments, name));
  }
  const auto jobs = planBatch(arguments.sources, arguments.folder, formats);
  return runBatch(bridge, options, common, jobs, arguments.folder,
                  {arguments.workers, static_cast<double>(arguments.timeout)});
}

// The names of a table's rows, as a type name that completion offers choices from.
std::string listNames(const auto& rows) {
  std::string names;
  for (const auto& row : rows) {
    names += (names.empty() ? "" : "|") + std::string(row.name);
  }
  return names;
}

}  // namespace

// In type names, words with | between them are what can be chosen from: completion offers them.
void addImportCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command = app.add_subcommand("import", "Import exports and save their models");
  const auto arguments = std::make_shared<ImportArguments>();
  const auto add = [&](const char* name, auto& value, const std::string& type, const char* summary) {
    return command->add_option(name, value, summary)->type_name(type);
  };
  add("EXPORT", arguments->sources, "FILE", "The TXT export; several with -O")->required();
  auto* output =
      add("-o,--output", arguments->outputs, "FILE",
          "Where the model goes (default: standard output, which is -); the extension names the format; "
          "again for another format");
  auto* folder = add("-O,--output-folder", arguments->folder, "FOLDER",
                     "Where the models of many exports go, each named like its export, and summary.json");
  add("-t,--format", arguments->formats, listNames(getModelFormats()),
      "The format, whatever the extension (on standard output else json); several times with -O");
  add("--dialect", arguments->dialect, listNames(getSqlDialects()),
      "The dialect of SQL (default: that of the model's own database, or else ansi)");
  add("--names", arguments->names, "physical|logical",
      "Which names tables and columns go by (default: physical)")
      ->check(CLI::IsMember({"physical", "logical"}).description(""));
  command->add_flag("--quote", arguments->quote, "Quote all identifiers, also those that need it not");
  add("--views", arguments->views, "safe|always",
      "Which views' statements are written: those that the dialect will take, or all (default: safe)")
      ->check(CLI::IsMember({"safe", "always"}).description(""));
  add("--types", arguments->typeRules, "FILE",
      "Types of columns that go before the built-in ones: a table like that of `vorn types`");
  add("--decimals", arguments->decimals, "integers|keep",
      "What becomes of Oracle's NUMBER without a scale: integers where they hold it, or decimals (default: "
      "integers)")
      ->check(CLI::IsMember({"integers", "keep"}).description(""));
  command->add_flag("--drop", arguments->drops,
                    "SQL: first remove the tables and views that the script makes");
  command->add_flag("--transaction", arguments->isTransaction,
                    "SQL: make all or nothing, where the database can");
  add("-j,--jobs", arguments->workers, "N", "With -O: imports at a time (default: one a processor)")
      ->check(CLI::Range(1, 1024).description(""))
      ->needs(folder);
  add("--timeout", arguments->timeout, "SECONDS", "With -O: when an import is given up (default: 600)")
      ->check(CLI::Range(1, 1000000).description(""))
      ->needs(folder);
  add("--role-names", arguments->roleNames, "origin|destination", "Where role names stand (default: origin)");
  add("--encoding", arguments->encoding, "NAME",
      "The export's encoding, such as cp850 (default: windows-1252)");
  add("--open-mode", arguments->openMode, "binary|text", "How the export is opened (default: binary)");
  add("--tool-version", arguments->toolVersion, "VERSION",
      "The version of the tool that made the export (default: 2.8.4)");
  auto* report =
      add("--report", arguments->report, "FILE",
          "Where to tell of every record that is dropped or changed: JSON Lines, or text for .txt and "
          ".md");
  add("--option", arguments->options, "NAME=VALUE", "Any option of the bridge");
  for (CLI::Option* option : command->get_options()) {
    if (!option->get_positional()) {
      option->allow_extra_args(false);  // a list takes one value each time, not all that follow
    }
  }
  output->excludes(folder);
  report->excludes(folder);
  command->footer(
      "Example: vorn import bookshop.txt -o bookshop.json\n"
      "Example: vorn import bookshop.txt -o bookshop.sql --dialect postgresql\n"
      "Example: vorn import exports/*.txt -O models -j 4");
  command->callback([&common, &status, arguments] {
    if (arguments->outputs.empty()) {
      arguments->outputs.emplace_back(VornOutputFile::kStandardOutput);
    }
    if (arguments->formats.empty() && !arguments->folder.empty()) {
      arguments->formats.emplace_back("json");
    }
    status = runImportCommand(common, *arguments);
  });
}

}  // namespace cli
