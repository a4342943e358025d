#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "cli/batch.h"
#include "cli/commands.h"
#include "cli/import_job.h"
#include "cli/import_log.h"
#include "cli/import_watch.h"
#include "cli/known_names.h"
#include "cli/option_values.h"
#include "cli/suggestion.h"
#include "host/base/file.h"
#include "host/base/output_file.h"
#include "host/base/system_error.h"
#include "host/base/unicode.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
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
  unsigned timeout = 600;  // seconds for each import of a batch; 0: any number
  bool resume = false;
  bool noClobber = false;
  std::string roleNames;
  std::string encoding;
  std::string openMode;
  std::string toolVersion;
  std::string report;                // empty for none; of a batch the folder of all
  std::vector<std::string> options;  // NAME=VALUE
  bool force = false;
};

void setOptions(VornOptionList& options, const ImportArguments& arguments) {
  for (const std::string& assignment : arguments.options) {
    setOption(options, assignment);
  }
  const auto setWhenGiven = [&](const char* flag, const char* name, const std::string& value) {
    if (!value.empty()) {
      setOption(options, name, value, flag);
    }
  };
  setWhenGiven("--role-names", "Role Name Location", arguments.roleNames);
  if (arguments.encoding != kDetectedEncoding) {
    setWhenGiven("--encoding", "Encoding", arguments.encoding);
  }
  setWhenGiven("--open-mode", "Open Mode", arguments.openMode);
  setWhenGiven("--tool-version", "Version", arguments.toolVersion);
}

// The form of an output, as its format's name (which may be empty) and the choices for all outputs tell it.
VornOutputFormat makeFormat(const ImportArguments& arguments, const std::string& name) {
  return {.name = VornString(name),
          .dialect = VornString(arguments.dialect),
          .logicalNames = arguments.names == "logical",
          .quoteAll = arguments.quote,
          .typeRules = VornString(arguments.typeRulesText),
          .keepsDecimals = arguments.decimals == "keep",
          .drops = arguments.drops,
          .isTransaction = arguments.isTransaction,
          .everyView = arguments.views == "always"};
}

// The dialect's own name; empty where none is named.
std::string checkDialect(const std::string& word) {
  const std::string dialect = toDialectName(word);
  if (dialect.empty() || findSqlDialect(dialect) != nullptr) {
    return dialect;
  }
  std::vector<std::string> names;
  for (const SqlDialect& known : getSqlDialects()) {
    names.emplace_back(known.name);
  }
  throw UsageError("there is no dialect '" + dialect + "': `vorn dialects` lists them" +
                   suggest(dialect, names));
}

InputLook planLook(const ImportArguments& arguments) {
  return {.force = arguments.force, .detectsEncoding = arguments.encoding == kDetectedEncoding};
}

// Reads the user's type rules. Throws UsageError with all that is wrong in them.
std::string readTypeRulesFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!file) {
    throw UsageError("Cannot read '" + path + "': " + lastSystemError().message());
  }
  std::vector<std::string> problems;
  readTypeRules(text, problems);
  if (problems.empty()) {
    return text;
  }
  throw UsageError(
      join(problems, "\n", [&path](const std::string& problem) { return path + ", " + problem; }));
}

// The job of a command line that names its outputs.
ImportJob planImport(const ImportArguments& arguments) {
  if (arguments.sources.size() > 1) {
    throw UsageError("several exports need a folder for their models: -O FOLDER");
  }
  if (arguments.formats.size() > 1) {
    throw UsageError("-t sets the format of all outputs; repeat it only with -O");
  }
  ImportJob job{arguments.sources.front(), {}, arguments.report, !arguments.noClobber, planLook(arguments)};
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
  ImportWatch watch(log);
  log.setLevel(common.quiet     ? VornSeverity::warning
               : common.verbose ? VornSeverity::debug
                                : VornSeverity::status);
  if (::isatty(STDERR_FILENO) == 1) {
    watch.suggestSystemsOf(bridge);
    // The progress bar shows the steps there; through a pipe they are lines of a log.
    if (!common.verbose) {
      log.hideSteps();
    }
  }
  const EarlierOutputs earlier(job);
  const auto [status, counts] = runImport(bridge, options, job, log, watch);
  if (status != kDone) {
    log.finish();
    for (const std::string& path : earlier.getUntouched()) {
      std::cerr << toPrintableLine(path) << " is unchanged, from an earlier import\n";
    }
    return status;
  }
  log.finish();
  const std::size_t warnings = log.getCount(VornSeverity::warning);
  if (!common.quiet) {
    std::cerr << describeImport(counts, warnings, log.getSeconds()) << '\n';
    if (job.report.empty() && (watch.hasWarned() || counts.tables + counts.views == 0)) {
      std::cerr << "vorn info shows what was read and dropped; --report FILE lists every dropped or changed "
                   "record\n";
    }
  }
  return common.failOnWarning && warnings > 0 ? kAnswerIsNo : kDone;
}

// The options that a batch's models depend on, with their values as given.
std::map<std::string, std::vector<std::string>> listModelOptions(const CLI::App& command) {
  const std::set<std::string> unrelated{"EXPORT",    "--help",   "--output-folder", "--jobs",
                                        "--timeout", "--resume", "--no-clobber",    "--force"};
  std::map<std::string, std::vector<std::string>> options;
  for (const CLI::Option* option : command.get_options()) {
    const std::string name = option->get_name();
    if (option->count() > 0 && !unrelated.contains(name)) {
      options[name] = option->results();
    }
  }
  return options;
}

ExitStatus runImportCommand(const CLI::App& command, const CommonOptions& common,
                            ImportArguments& arguments) {
  arguments.dialect = checkDialect(arguments.dialect);
  std::ranges::transform(arguments.formats, arguments.formats.begin(), toFormatName);
  if (std::ranges::count(arguments.sources, "") > 0) {
    throw UsageError("the name of an export is empty");
  }
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
  if (std::ranges::count(arguments.sources, VornFile::kStandardInput) > 0) {
    throw UsageError("standard input can only be imported alone: use -o FILE instead of -O FOLDER");
  }
  std::vector<VornOutputFormat> formats;
  for (const std::string& name : arguments.formats) {
    formats.push_back(makeFormat(arguments, name));
  }
  WorkerLimits limits{.atATime = arguments.workers};
  if (arguments.timeout > 0) {
    limits.seconds = arguments.timeout;
  }
  return runBatch(bridge, options, common,
                  {arguments.sources, arguments.folder, arguments.report, formats, !arguments.noClobber,
                   arguments.resume, planLook(arguments), listModelOptions(command)},
                  limits);
}

// The names of a table's rows, as a type name that completion offers choices from.
std::string listNames(const auto& rows) {
  return join(rows, "|", [](const auto& row) { return row.name; });
}

}  // namespace

// In type names, words with | between them are what can be chosen from: completion offers them.
void addImportCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command = app.add_subcommand("import", "Import exports and save their models");
  const auto arguments = std::make_shared<ImportArguments>();
  const auto add = [&](const char* name, auto& value, const std::string& type, const char* summary) {
    return command->add_option(name, value, summary)->type_name(type);
  };
  add("EXPORT", arguments->sources, "FILE",
      "The TXT export, or - for standard input; with -O several, and folders of *.txt")
      ->required();
  auto* output = add(
      "-o,--output", arguments->outputs, "FILE",
      "The file to save the model in; its extension names the format. - is standard output (default). Repeat "
      "the option to save several formats");
  auto* folder =
      add("-O,--output-folder", arguments->folder, "FOLDER",
          "The folder for the models of many exports, each named like its export, and for summary.json");
  add("-t,--format", arguments->formats, listNames(getModelFormats()),
      "The format, if not the one that the extension names (default on standard output: json). Repeat the "
      "option with -O to save several");
  add("--dialect", arguments->dialect, listNames(getSqlDialects()),
      "The dialect of SQL (default: that of the model's own database, or else ansi). postgres, pg and mssql "
      "are "
      "taken as well");
  add("--names", arguments->names, "physical|logical",
      "Which names of tables and columns to write (default: physical)")
      ->check(CLI::IsMember({"physical", "logical"}).description(""));
  command->add_flag("--quote", arguments->quote, "Quote all identifiers, even those that do not need it");
  add("--views", arguments->views, "safe|always",
      "Which view statements to write: only those that the dialect accepts, or all that can do no harm "
      "(default: safe)")
      ->check(CLI::IsMember({"safe", "always"}).description(""));
  add("--types", arguments->typeRules, "FILE",
      "A table of column types in the form of vorn types, which goes before the built-in one");
  add("--decimals", arguments->decimals, "integers|keep",
      "How to write Oracle's NUMBER without a scale: as integers where they hold it, or as decimals "
      "(default: "
      "integers)")
      ->check(CLI::IsMember({"integers", "keep"}).description(""));
  command->add_flag("--drop", arguments->drops,
                    "SQL: first drop the tables and views that the script creates");
  command->add_flag("--transaction", arguments->isTransaction,
                    "SQL: create all or nothing, where the database can");
  add("-j,--jobs", arguments->workers, "N",
      "With -O: number of imports at a time (default: one per processor)")
      ->check(CLI::Range(1, 1024).description(""))
      ->needs(folder);
  add("--timeout", arguments->timeout, "SECONDS",
      "With -O: stop an import after this time; 0 means never (default: 600)")
      ->check(CLI::Range(0, 1000000).description(""))
      ->needs(folder);
  command
      ->add_flag("--resume", arguments->resume,
                 "With -O: import only what an earlier batch, by its summary, has not done or what has "
                 "changed since")
      ->needs(folder);
  command->add_flag("--no-clobber", arguments->noClobber, "Fail if an output exists already");
  add("--role-names", arguments->roleNames, "origin|destination",
      "At which end of a relationship the export has its role names (default: origin)");
  add("--encoding", arguments->encoding, "ENCODING",
      "The export's encoding, such as cp850 (default: windows-1252), or auto to detect it");
  command->add_flag("--force", arguments->force, "Import the file even if it is damaged or not an export");
  add("--open-mode", arguments->openMode, "binary|text",
      "How to open the export; both give the same model here (default: binary)");
  add("--tool-version", arguments->toolVersion, "VERSION",
      "The version of the tool that made the export (default: 2.8.4)");
  add("--report", arguments->report, "FILE",
      "Write a record-by-record report of what was dropped or changed: JSON Lines, or text if the file ends "
      "in .txt or .md; with -O the folder for one report per export");
  add("--option", arguments->options, "NAME=VALUE",
      "Set any option of the bridge (vorn bridge options lists them)");
  for (CLI::Option* option : command->get_options()) {
    if (!option->get_positional()) {
      option->allow_extra_args(false);  // a list takes one value each time, not all that follow
    }
  }
  output->excludes(folder);
  command->footer(
      "Example: vorn import bookshop.txt -o bookshop.json\n"
      "Example: vorn import bookshop.txt -o bookshop.sql --dialect postgresql\n"
      "Example: vorn import exports/*.txt -O models -j 4");
  command->callback([command, &common, &status, arguments] {
    if (arguments->outputs.empty()) {
      arguments->outputs.emplace_back(VornOutputFile::kStandardOutput);
    }
    if (arguments->formats.empty() && !arguments->folder.empty()) {
      arguments->formats.emplace_back("json");
    }
    status = runImportCommand(*command, common, *arguments);
  });
}

}  // namespace cli
