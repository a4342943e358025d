#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/import_log.h"
#include "cli/option_values.h"
#include "host/constants/pemo.h"
#include "host/modelbridge/bridge_library.h"
#include "host/modelbridge/dll_interface.h"
#include "host/std/exception.h"
#include "host/std/output_file.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

struct ImportArguments {
  std::string source;
  std::string output{VornOutputFile::kStandardOutput};
  std::string format;
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
  setOption(options, "File", arguments.source);
}

void setOutput(VornFile& output, const ImportArguments& arguments) {
  output = VornString(arguments.output);
  const bool toStandardOutput = arguments.output == VornOutputFile::kStandardOutput;
  output.setFormat(VornString(arguments.format.empty() && toStandardOutput ? "json" : arguments.format));
  std::error_code error;
  if (std::filesystem::equivalent(arguments.source, arguments.output, error)) {
    throw UsageError("the output '" + arguments.output + "' is the export itself");
  }
  if (!arguments.report.empty() && (arguments.report == arguments.output ||
                                    std::filesystem::equivalent(arguments.source, arguments.report, error))) {
    throw UsageError("the report '" + arguments.report + "' is the output or the export itself");
  }
  try {
    getModelFormat(output);
  } catch (const VornException& problem) {
    throw UsageError(std::string(problem.getText().view()) + "; name one with -t");
  }
}

ExitStatus statusOf(const VornException& problem) {
  const auto is = [&](const VornMessageLiteral& message) { return problem.getCode() == message.getCode(); };
  if (is(PEMO::CANNOT_WRITE_FILE)) {
    return kCannotWrite;
  }
  return problem.getCode().view().starts_with("VORN_") ? kInternalError : kBadInput;
}

ExitStatus runImport(const CommonOptions& common, const ImportArguments& arguments) {
  const VornBridgeLibrary library(findBridge(common));
  VornOptionList options;
  library.getInterface().getOptionList(options);
  setOptions(options, arguments);
  VornFile output;
  setOutput(output, arguments);

  ImportLog log(std::cerr);
  log.setLevel(common.quiet     ? VornSeverity::warning
               : common.verbose ? VornSeverity::debug
                                : VornSeverity::status);
  try {
    VornImportBridgeDllInterface& bridge = library.getInterface();
    if (!bridge.test(kImporter, options, log)) {
      return kBadInput;
    }
    if (!arguments.report.empty()) {
      log.openReport(arguments.report);
    }
    bridge.run(kImporter, output, options, log);
    log.commitReport();
  } catch (const VornException& problem) {
    log.write(problem.getSeverity(), problem.getCode(), problem.getFullText());
    return statusOf(problem);
  }
  if (!common.quiet) {
    log.writeClosingLine();
  }
  return common.failOnWarning && log.getCount(VornSeverity::warning) > 0 ? kAnswerIsNo : kDone;
}

}  // namespace

void addImportCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command = app.add_subcommand("import", "Import an export and save the model");
  const auto arguments = std::make_shared<ImportArguments>();
  command->add_option("EXPORT", arguments->source, "The TXT export")->required();
  command
      ->add_option("-o,--output", arguments->output,
                   "Where the model goes; the extension names the format; - is standard output")
      ->capture_default_str();
  command->add_option("-t,--format", arguments->format, "The format, where no extension tells it");
  command->add_option("--role-names", arguments->roleNames, "Where role names stand: origin or destination");
  command->add_option("--encoding", arguments->encoding,
                      "The export's encoding, such as windows-1252 or cp850");
  command->add_option("--open-mode", arguments->openMode, "How the export is opened: binary or text");
  command->add_option("--tool-version", arguments->toolVersion,
                      "The version of the tool that made the export");
  command->add_option("--report", arguments->report,
                      "Where to tell of every record that is dropped or changed: JSON Lines, or text for "
                      ".txt and .md");
  command->add_option("--option", arguments->options, "NAME=VALUE: any option of the bridge")
      ->allow_extra_args(false);
  command->footer("Example: vorn import bookshop.txt -o bookshop.json");
  command->callback([&common, &status, arguments] { status = runImport(common, *arguments); });
}

}  // namespace cli
