// vorn: imports relational data models from TXT exports.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "cli/commands.h"
#include "host/std/exception.h"
#include "host/std/unicode.h"

namespace {

void complain(const std::string& text) {
  std::cerr << text << '\n';
}

cli::ExitStatus run(int argc, char** argv) {
  CLI::App app("Imports relational data models from TXT exports and saves them in formats of today.", "vorn");
  app.set_version_flag("--version", "vorn " VORN_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  app.footer("Example: vorn import bookshop.txt -o bookshop.json");
  cli::CommonOptions common;
  app.add_flag("-q,--quiet", common.quiet, "Warnings and errors only");
  app.add_flag("-v,--verbose", common.verbose, "Also what helps to look for a fault");
  app.add_flag("--fail-on-warning", common.failOnWarning, "Exit with 1 when there was a warning");
  app.add_option("--bridge", common.bridge, "The plug-in to load (default: the one beside the program)");
  cli::ExitStatus status = cli::kDone;
  cli::addImportCommand(app, common, status);
  cli::addInfoCommand(app, common, status);
  cli::addBridgeCommand(app, common, status);
  cli::addEncodingsCommand(app, status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& problem) {
    if (problem.get_exit_code() == 0) {
      app.exit(problem);  // prints the help or the version
      return cli::kDone;
    }
    complain("vorn: " + std::string(problem.what()) + " (vorn --help tells more)");
    return cli::kUsage;
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const cli::UsageError& problem) {
    complain(std::string("vorn: ") + problem.what());
    return cli::kUsage;
  } catch (const VornException& problem) {
    // Outside of an import, only the plug-in's loading throws these.
    complain("FATAL " + std::string(problem.getCode().view()) + " " +
             toPrintableLine(problem.getText().view()));
    return cli::kNoBridge;
  } catch (const std::exception& problem) {
    complain(std::string("vorn: internal error: ") + problem.what());
    return cli::kInternalError;
  }
}
