#include "cli/help.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <sstream>
#include <vector>

#include "cli/commands.h"
#include "cli/suggestion.h"
#include "host/base/text.h"

namespace cli {

namespace {

constexpr std::size_t kLeft = 30;    // where summaries begin
constexpr std::size_t kRight = 100;  // where lines end

// An entry with its summary in lines beside it, or below it where it is too long.
std::string layOut(const std::string& entry, const std::string& summary) {
  std::string text = "  " + entry;
  std::size_t column = text.size();
  if (column + 2 > kLeft) {
    text += '\n';
    column = 0;
  }
  std::istringstream words(summary);
  for (std::string word; words >> word;) {
    if (column > kLeft && column + 1 + word.size() > kRight) {
      text += '\n';
      column = 0;
    }
    const std::size_t blanks = column < kLeft ? kLeft - column : 1;
    text.append(blanks, ' ').append(word);
    column += blanks + word.size();
  }
  return text + '\n';
}

// Says what a summary does not say: names, a value, and no rules between options.
class HelpLayout final : public CLI::Formatter {
 public:
  HelpLayout() {
    label("SUBCOMMAND", "COMMAND");
    label("Positionals", "Arguments");
  }

  std::string make_option(const CLI::Option* option, bool isPositional) const override {
    std::string entry;
    if (isPositional) {
      entry = option->get_name(true);
    } else {
      for (const std::string& name : option->get_snames()) {
        entry += (entry.empty() ? "-" : ", -") + name;
      }
      for (const std::string& name : option->get_lnames()) {
        entry += (entry.empty() ? "    --" : ", --") + name;
      }
      if (option->get_items_expected_max() > 0) {
        entry += " " + option->get_type_name();
      }
    }
    return layOut(entry, option->get_description());
  }

  std::string make_subcommand(const CLI::App* command) const override {
    return layOut(command->get_name(), command->get_description());
  }

  std::string make_footer(const CLI::App* command) const override {
    const std::string common =
        command->get_parent() == nullptr
            ? "vorn help COMMAND shows the options of a command.\n"
            : "Every command also takes the options that vorn --help lists, such as -q and -v.\n";
    return common + "\n" + CLI::Formatter::make_footer(command);
  }
};

std::vector<CLI::App*> getCommands(const CLI::App& of) {
  // Only the member function that is not const lists those that were not named.
  return const_cast<CLI::App&>(of).get_subcommands([](CLI::App*) { return true; });
}

std::vector<std::string> getNames(const std::vector<CLI::App*>& commands) {
  std::vector<std::string> names;
  for (const CLI::App* command : commands) {
    names.push_back(command->get_name());
  }
  return names;
}

std::string getPath(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  return (parent == nullptr ? "" : getPath(*parent) + " ") + command.get_name();
}

// The last command that was named; the program itself where none was.
const CLI::App& getNamedCommand(const CLI::App& app) {
  const CLI::App* command = &app;
  while (!command->get_subcommands().empty()) {
    command = command->get_subcommands().front();
  }
  return *command;
}

std::string explainOption(const std::string& word, const CLI::App& command) {
  std::vector<std::string> candidates;
  for (const CLI::App* level = &command; level != nullptr; level = level->get_parent()) {
    for (const CLI::Option* option : level->get_options()) {
      for (const std::string& name : option->get_lnames()) {
        candidates.push_back("--" + name);
      }
      for (const std::string& name : option->get_snames()) {
        candidates.push_back("-" + name);
      }
    }
  }
  if (std::ranges::find(candidates, word) != candidates.end()) {
    return "the option '" + word + "' must follow '" + getPath(command) + "'";
  }
  return "unknown option '" + word + "'" + suggest(word, candidates);
}

std::string explainWords(const CLI::ParseError& problem, const CLI::App& app) {
  const CLI::App& command = getNamedCommand(app);
  const std::vector<std::string> names = getNames(getCommands(command));
  const std::vector<std::string> rest = app.remaining(true);
  if (rest.empty()) {
    const bool wantsCommand = !names.empty() && command.get_subcommands().empty();
    return wantsCommand ? "'" + getPath(command) + "' needs a command: " + join(names, ", ") : problem.what();
  }
  const std::string word = rest.front().substr(0, rest.front().find('='));
  if (word.starts_with("-") && word != "-") {
    return explainOption(word, command);
  }
  if (names.empty()) {
    return "unexpected argument '" + rest.front() + "'";
  }
  return "unknown command '" + word + "'" + suggest(word, names);
}

}  // namespace

void setHelpLayout(CLI::App& app) {
  app.formatter(std::make_shared<HelpLayout>());
  app.get_help_ptr()->description("Print this help");
  for (CLI::App* command : getCommands(app)) {
    command->group("Commands");
    setHelpLayout(*command);
  }
}

void addHelpCommand(CLI::App& app, ExitStatus& status) {
  auto* help = app.add_subcommand("help", "Print the help of the program or of a command");
  const auto words = std::make_shared<std::vector<std::string>>();
  help->add_option("COMMAND", *words, "The command, such as import or bridge sections")
      ->type_name(join(getNames(getCommands(app)), "|"));
  help->footer("Example: vorn help import");
  help->callback([&app, &status, words] {
    const CLI::App* command = &app;
    for (const std::string& word : *words) {
      const auto commands = getCommands(*command);
      const auto found =
          std::ranges::find_if(commands, [&](const CLI::App* each) { return each->get_name() == word; });
      if (found == commands.end()) {
        throw UsageError("unknown command '" + word + "'" + suggest(word, getNames(commands)) + " (see " +
                         getPath(*command) + " --help)");
      }
      command = *found;
    }
    std::cout << command->get_formatter()->make_help(command, getPath(*command), CLI::AppFormatMode::Normal);
    status = std::cout.flush() ? kDone : kCannotWrite;
  });
}

std::string explainUsage(const CLI::ParseError& problem, const CLI::App& app) {
  return explainWords(problem, app) + " (see " + getPath(getNamedCommand(app)) + " --help)";
}

}  // namespace cli
