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

// Describes in one line what is wrong with the command line: the first unknown word with a suggestion, or
// what is missing; at the end the command whose help explains it.
std::string explainUsage(const CLI::ParseError& problem, const CLI::App& app);

}  // namespace cli
