// The program's commands and options as the command line knows them, in a form that the man page and the
// shells' completions are made from.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

// What can be the value of an option.
enum class ValueKind { none, file, folder, choice, other };

struct OptionPage {
  std::vector<std::string> names;  // "-o", "--output"; of a positional, its one name
  std::string value;               // what its value is called ("FILE"); empty: it has none
  ValueKind kind = ValueKind::none;
  std::vector<std::string> choices;  // where the value is a choice
  std::string summary;
  bool isPositional = false;
};

struct CommandPage {
  std::string path;  // "vorn bridge options"
  std::string summary;
  std::vector<OptionPage> options;
  std::vector<std::string> subcommands;  // their last words
  std::vector<std::string> examples;     // command lines
};

// The program itself first, each command before its own commands.
std::vector<CommandPage> listCommands(const CLI::App& app);

}  // namespace cli
