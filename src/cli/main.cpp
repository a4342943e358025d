// vorn: imports relational data models from TXT exports.
#include <CLI/CLI.hpp>
#include <cstring>
#include <exception>
#include <iostream>
#include <sstream>

#include "cli/commands.h"
#include "cli/help.h"
#include "cli/process.h"
#include "cli/standard_output.h"
#include "host/base/exception.h"
#include "host/base/pemo.h"
#include "host/base/unicode.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"

namespace {

// The text may repeat arguments, which are names of files above all.
void complain(const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::cerr << toPrintableLine(line) << '\n';
  }
}

void complain(const VornException& problem) {
  complain("FATAL " + std::string(problem.getCode().view()) + " " + std::string(problem.getText().view()));
}

// The program's version, and that of the bridge that it loads, which goes into every model. A bridge that
// cannot be loaded has none.
std::string describeVersions(const cli::CommonOptions& common) {
  std::string text = "vorn " VORN_VERSION;
  try {
    const VornBridgeLibrary library(cli::findBridge(common));
    VornBridgeSpecification specification;
    library.getInterface().getSpecification(cli::kImporter, specification);
    text += "\nimport bridge " + std::string(specification.buildVersion.view());
  } catch (const VornException&) {
    text += "\nimport bridge: cannot be loaded";
  }
  return text;
}

cli::ExitStatus run(int argc, char** argv) {
  CLI::App app("Imports relational data models from TXT exports and saves them in current formats", "vorn");
  app.require_subcommand(1);
  app.fallthrough();
  app.footer("Example: vorn import bookshop.txt -o bookshop.json");
  cli::CommonOptions common;
  app.set_version_flag(
      "-V,--version", [&common] { return describeVersions(common); },
      "Print the versions of program and bridge");
  app.add_flag("-q,--quiet", common.quiet, "Print warnings and errors only");
  app.add_flag("-v,--verbose", common.verbose, "Also log each step and debug messages");
  app.add_flag("--fail-on-warning", common.failOnWarning, "Exit with status 1 if there was a warning");
  app.add_option("--bridge", common.bridge,
                 "The plug-in to load (default: the one installed with the program)")
      ->type_name("FILE");
  cli::ExitStatus status = cli::kDone;
  cli::addImportCommand(app, common, status);
  cli::addRepairCommand(app, common, status);
  cli::addInfoCommand(app, common, status);
  cli::addBridgeCommand(app, common, status);
  cli::addEncodingsCommand(app, status);
  cli::addFormatsCommand(app, status);
  cli::addDialectsCommand(app, status);
  cli::addTypesCommand(app, status);
  cli::addSchemaCommand(app, status);
  cli::addCompletionCommand(app, common, status);
  cli::addManCommand(app, status);
  cli::addHelpCommand(app, status);
  cli::setHelpLayout(app);
  if (argc < 2) {
    std::cout << app.help();
    return std::cout.flush() ? cli::kDone : cli::kCannotWrite;
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& problem) {
    if (problem.get_exit_code() == 0) {
      app.exit(problem);  // prints the help or the version
      return cli::kDone;
    }
    complain("vorn: " + cli::explainUsage(problem, app));
    return cli::kUsage;
  }
  return status;
}

// The commands leave it to this to say why standard output did not take what they wrote.
int checkOutput(cli::ExitStatus status, cli::StandardOutput& output) {
  const std::error_code reason = output.finish();
  if (!reason) {
    return status;
  }
  complain(PEMO::CANNOT_WRITE_FILE.makeException({"standard output", VornString(reason.message())}));
  return cli::kCannotWrite;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    cli::prepareProcess();
    cli::StandardOutput output;
    return checkOutput(run(argc, argv), output);
  } catch (const cli::UsageError& problem) {
    complain(std::string("vorn: ") + problem.what());
    return cli::kUsage;
  } catch (const VornException& problem) {
    complain(problem);
    return cli::statusOf(problem);
  } catch (const std::exception& problem) {
    complain(std::string("vorn: internal error: ") + problem.what());
    return cli::kInternalError;
  }
}
