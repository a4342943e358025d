#include <CLI/CLI.hpp>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/import_job.h"
#include "cli/input_look.h"
#include "cli/option_values.h"
#include "host/base/exception.h"
#include "host/base/output_file.h"
#include "host/base/pemo.h"
#include "host/base/unicode.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/plugin/input_inspection.h"

namespace cli {

namespace {

struct RepairArguments {
  std::string source;
  std::string output;
};

// Throws VornException where the file cannot be read to its end.
std::string readWhole(const std::string& path) {
  VornFile file{VornString(path)};
  file.open(VornFile::kRead | VornFile::kBinary);
  std::string bytes;
  for (std::string_view ahead = file.peek(); !ahead.empty(); ahead = file.peek()) {
    bytes += ahead;
    file.skip(ahead.size());
  }
  if (const std::error_code reason = file.getError()) {
    throw PEMO::CANNOT_READ_FILE.makeException({file.getPath(), VornString(reason.message())})
        .withContext(VornString("at byte " + std::to_string(bytes.size())));
  }
  return bytes;
}

void save(const std::string& path, const std::string& bytes) {
  VornOutputFile file(path);
  file.write(bytes.data(), bytes.size());
  file.commit();
}

void printSteps(const RepairArguments& arguments, const VornRepairedInput& repaired) {
  const std::string source = toPrintableLine(arguments.source);
  const std::string output = toPrintableLine(arguments.output);
  for (const std::string& step : repaired.steps) {
    std::cerr << step << '\n';
  }
  if (repaired.steps.empty()) {
    std::cerr << "'" << source << "' is sound and needs no repair; '" << output << "' is a copy of it.\n";
  }
  if (isUtf8(repaired.bytes) && !isAscii(repaired.bytes)) {
    std::cerr << "Its texts are UTF-8. To import it: vorn import " << quoteForShell(output)
              << " --encoding utf-8\n";
  }
}

// Has the bridge say in the log why the file cannot be opened, if so.
bool canOpen(VornImportBridgeDllInterface& bridge, const std::string& path, VornLog& log) {
  VornOptionList options;
  bridge.getOptionList(options);
  setOption(options, "File", path);
  return bridge.test(kImporter, options, log);
}

ExitStatus runRepair(const CommonOptions& common, const RepairArguments& arguments) {
  const VornBridgeLibrary library(findBridge(common));
  VornImportBridgeDllInterface& bridge = library.getInterface();
  auto* const inspection = dynamic_cast<VornInputInspection*>(&bridge);
  if (inspection == nullptr) {
    std::cerr << "vorn: the bridge cannot repair exports\n";
    return kNoBridge;
  }
  checkOutputs({ImportJob{arguments.source, {}, arguments.output}}, "");
  VornStreamLog log(std::cerr);
  try {
    if (!canOpen(bridge, arguments.source, log)) {
      return kBadInput;
    }
    const VornRepairedInput repaired = inspection->repair(readWhole(arguments.source), arguments.source);
    if (!repaired.obstacle.empty()) {
      PEMO::UNSOUND_INPUT.throwException({VornString(repaired.obstacle), "It cannot be repaired."});
    }
    save(arguments.output, repaired.bytes);
    if (!common.quiet) {
      printSteps(arguments, repaired);
    }
  } catch (const VornException& problem) {
    log.write(problem.getSeverity(), problem.getCode(), problem.getFullText());
    return statusOf(problem);
  }
  return kDone;
}

}  // namespace

void addRepairCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command =
      app.add_subcommand("repair", "Write a repaired copy of an export that was damaged in transfer");
  const auto arguments = std::make_shared<RepairArguments>();
  command->add_option("EXPORT", arguments->source, "The TXT export")->required()->type_name("FILE");
  command->add_option("-o,--output", arguments->output, "The file to write the copy to; - is standard output")
      ->required()
      ->type_name("FILE");
  command->footer("Example: vorn repair bookshop.txt -o fixed.txt");
  command->callback([&common, &status, arguments] { status = runRepair(common, *arguments); });
}

}  // namespace cli
