// Help texts, and how a command line that was not understood is explained.
#pragma once

#include <string>

#include "cli/exit_status.h"

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace cli {

// Sets the layout of the help of `app` and of all its commands, which must have been added before.
void setHelpLayout(CLI::App& app);

// Adds `vorn help [COMMAND...]`.
void addHelpCommand(CLI::App& app, ExitStatus& status);

// What is wrong with the command line, as one line: the first word that was not understood, with what it
// probably means, or else what is missing; at its end the command whose help tells more.
std::string explainUsage(const CLI::ParseError& problem, const CLI::App& app);

}  // namespace cli
