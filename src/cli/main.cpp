// vorn: imports relational data models from TXT exports.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "cli/commands.h"
#include "cli/process.h"
#include "cli/suggestion.h"
#include "host/constants/pemo.h"
#include "host/std/exception.h"
#include "host/std/unicode.h"

namespace {

void complain(const std::string& text) {
  std::cerr << text << '\n';
}

// Every command that was named, from the program itself on.
std::vector<const CLI::App*> getNamedCommands(const CLI::App& app) {
  std::vector<const CLI::App*> commands{&app};
  while (!commands.back()->get_subcommands().empty()) {
    commands.push_back(commands.back()->get_subcommands().front());
  }
  return commands;
}

// What is wrong with the command line: the first word that was not understood, with what it was probably
// meant to be, or else what the grammar misses.
std::string explain(const CLI::ParseError& problem, const CLI::App& app) {
  const std::vector<std::string> rest = app.remaining(true);
  if (rest.empty()) {
    return problem.what();
  }
  const std::string word = rest.front().substr(0, rest.front().find('='));
  const std::vector<const CLI::App*> named = getNamedCommands(app);
  std::vector<std::string> candidates;
  if (word.starts_with("-")) {
    for (const CLI::App* command : named) {
      for (const CLI::Option* option : command->get_options()) {
        for (const std::string& name : option->get_lnames()) {
          candidates.push_back("--" + name);
        }
      }
    }
    return "unknown option '" + word + "'" + cli::suggest(word, candidates);
  }
  for (const CLI::App* subcommand : named.back()->get_subcommands([](const CLI::App*) { return true; })) {
    candidates.push_back(subcommand->get_name());
  }
  if (candidates.empty()) {
    return "one argument too many: '" + rest.front() + "'";
  }
  return "unknown command '" + word + "'" + cli::suggest(word, candidates);
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
  app.add_option("--bridge", common.bridge, "The plug-in to load (default: the one beside the program)")
      ->type_name("FILE");
  cli::ExitStatus status = cli::kDone;
  cli::addImportCommand(app, common, status);
  cli::addInfoCommand(app, common, status);
  cli::addBridgeCommand(app, common, status);
  cli::addEncodingsCommand(app, status);
  cli::addFormatsCommand(app, status);
  cli::addDialectsCommand(app, status);
  cli::addTypesCommand(app, status);
  cli::addSchemaCommand(app, status);
  cli::addCompletionCommand(app, status);
  cli::addManCommand(app, status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& problem) {
    if (problem.get_exit_code() == 0) {
      app.exit(problem);  // prints the help or the version
      std::cout << (problem.get_name() == "CallForHelp" ? "\n" : "");
      return cli::kDone;
    }
    complain("vorn: " + explain(problem, app) + " (vorn --help tells more)");
    return cli::kUsage;
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    cli::prepareProcess();
    return run(argc, argv);
  } catch (const cli::UsageError& problem) {
    complain(std::string("vorn: ") + problem.what());
    return cli::kUsage;
  } catch (const VornException& problem) {
    // Outside of an import, only the plug-in's loading and the saving of a summary throw these.
    complain("FATAL " + std::string(problem.getCode().view()) + " " +
             toPrintableLine(problem.getText().view()));
    return problem.getCode() == PEMO::CANNOT_WRITE_FILE.getCode() ? cli::kCannotWrite : cli::kNoBridge;
  } catch (const std::exception& problem) {
    complain(std::string("vorn: internal error: ") + problem.what());
    return cli::kInternalError;
  }
}
