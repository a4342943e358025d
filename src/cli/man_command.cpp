// The man page: the help of all commands, and what holds for all of them.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/command_tree.h"
#include "cli/commands.h"

namespace cli {

namespace {

// `text` as roff has it: nothing in it is a command, and a - is one that can be copied.
std::string toRoff(const std::string& text) {
  std::string roff(text.starts_with(".") || text.starts_with("'") ? "\\&" : "");
  for (const char c : text) {
    roff += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
  }
  return roff;
}

void printOption(const OptionPage& option) {
  std::string names;
  for (const std::string& name : option.names) {
    names += (names.empty() ? "" : ", ") + ("\\fB" + toRoff(name) + "\\fR");
  }
  std::cout << ".TP\n"
            << names << (option.value.empty() ? "" : " \\fI" + toRoff(option.value) + "\\fR") << '\n'
            << toRoff(option.summary) << '\n';
}

void printCommand(const CommandPage& command) {
  for (const OptionPage& option : command.options) {
    if (option.names.back() != "--help") {
      printOption(option);
    }
  }
  for (const std::string& example : command.examples) {
    std::cout << ".PP\nExample:\n.PP\n.nf\n.RS\n" << toRoff(example) << "\n.RE\n.fi\n";
  }
}

void printManPage(const std::vector<CommandPage>& commands) {
  const CommandPage& program = commands.front();
  std::cout << ".TH VORN 1 \"\" \"vorn " VORN_VERSION "\" \"User Commands\"\n"
            << ".SH NAME\nvorn \\- " << toRoff(program.summary) << '\n'
            << ".SH SYNOPSIS\n.B vorn\n.I COMMAND\n[\\fIOPTION\\fR]...\n"
            << ".SH OPTIONS\nEvery command understands these and \\fB\\-\\-help\\fR.\n";
  printCommand(program);
  std::cout << ".SH COMMANDS\n";
  for (auto command = commands.begin() + 1; command != commands.end(); ++command) {
    std::cout << ".SS " << toRoff(command->path) << '\n' << toRoff(command->summary) << ".\n";
    printCommand(*command);
  }
  std::cout << ".SH EXIT STATUS\n";
  for (const ExitStatusText& status : kExitStatusTexts) {
    std::cout << ".TP\n\\fB" << status.status << "\\fR\n" << toRoff(status.text) << '\n';
  }
  std::cout
      << ".SH ENVIRONMENT\n.TP\n\\fBVORN_BRIDGE\\fR\nThe plug\\-in to load where no \\fB\\-\\-bridge\\fR "
         "names one.\n";
}

}  // namespace

void addManCommand(CLI::App& app, ExitStatus& status) {
  auto* command = app.add_subcommand("man", "Print the man page");
  command->footer("Example: vorn man > vorn.1 && man -l vorn.1");
  command->callback([&app, &status] {
    printManPage(listCommands(app));
    status = std::cout.flush() ? kDone : kCannotWrite;
  });
}

}  // namespace cli
