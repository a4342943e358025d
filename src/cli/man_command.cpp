// The man page: the help of all commands, and what holds for all of them.
#include <CLI/CLI.hpp>
#include <initializer_list>
#include <iostream>
#include <set>
#include <string>

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
  const std::string names =
      join(option.names, ", ", [](const std::string& name) { return "\\fB" + toRoff(name) + "\\fR"; });
  std::cout << ".TP\n"
            << names
            << (option.value.empty() || option.isPositional ? "" : " \\fI" + toRoff(option.value) + "\\fR")
            << '\n'
            << toRoff(option.summary) << '\n';
}

// A command line, shown as it is typed.
void printExample(const std::string& example) {
  std::cout << ".PP\n.nf\n" << toRoff(example) << "\n.fi\n";
}

void printOptions(const CommandPage& command) {
  for (const OptionPage& option : command.options) {
    if (option.names.back() != "--help") {
      printOption(option);
    }
  }
}

struct Paragraph {
  const char* heading;  // of an entry; empty: none
  const char* text;
};

void printSection(const char* title, std::initializer_list<Paragraph> paragraphs) {
  std::cout << ".SH " << title << '\n';
  for (const Paragraph& paragraph : paragraphs) {
    if (*paragraph.heading == '\0') {
      std::cout << ".PP\n";
    } else {
      std::cout << ".TP\n\\fB" << toRoff(paragraph.heading) << "\\fR\n";
    }
    std::cout << toRoff(paragraph.text) << '\n';
  }
}

void printManPage(const std::vector<CommandPage>& commands) {
  const CommandPage& program = commands.front();
  std::cout << ".TH VORN 1 \"" << toRoff(VORN_BUILD_DATE)
            << "\" \"vorn " VORN_VERSION "\" \"User Commands\"\n"
            << ".SH NAME\nvorn \\- imports relational data models from TXT exports\n"
            << ".SH SYNOPSIS\n.B vorn\n.I COMMAND\n[\\fIOPTION\\fR]... [\\fIEXPORT\\fR]...\n";
  printSection("DESCRIPTION", {{"",
                                "vorn reads the TXT exports of Silverrun RDM and saves the relational data "
                                "models in them in current formats: "
                                "JSON, SQL, DBML, Mermaid, Graphviz DOT and Markdown. The import itself is a "
                                "plug-in that vorn loads."},
                               {"",
                                "Results go to standard output. Messages go to standard error, one per line: "
                                "severity, code, text. On a "
                                "terminal a progress bar replaces the messages that tell the steps of an "
                                "import; --verbose shows them."},
                               {"",
                                "A failed import saves nothing and leaves the output as it was. The file "
                                "name - is standard input for an "
                                "export and standard output for a model."}});
  std::cout << ".SH OPTIONS\nEvery command takes these options and \\fB\\-\\-help\\fR.\n";
  printOptions(program);
  std::cout << ".SH COMMANDS\n";
  for (auto command = commands.begin() + 1; command != commands.end(); ++command) {
    std::cout << ".SS " << toRoff(command->path) << '\n' << toRoff(command->summary) << ".\n";
    printOptions(*command);
  }
  std::cout << ".SH EXIT STATUS\n";
  for (const ExitStatusText& status : kExitStatusTexts) {
    std::cout << ".TP\n\\fB" << status.status << "\\fR\n" << toRoff(status.text) << '\n';
  }
  printSection("ENVIRONMENT", {{"VORN_BRIDGE", "The plug-in to load if --bridge does not name one."}});
  printSection(
      "FILES",
      {{"../lib/vorn/VornSilverrunRdm262Import.so", "The plug-in, relative to the folder of the program."},
       {"summary.json", "The result of each import, in the folder that --output-folder names."}});
  std::cout << ".SH EXAMPLES\n";
  std::set<std::string> shown;  // some examples are those of several commands
  for (const CommandPage& command : commands) {
    for (const std::string& example : command.examples) {
      if (shown.insert(example).second) {
        printExample(example);
      }
    }
  }
  std::cout << ".SH SEE ALSO\n"
               "\\fBdot\\fR(1) draws what is saved as DOT; \\fBsqlite3\\fR(1) and \\fBpsql\\fR(1) run what "
               "is saved as "
               "SQL; \\fBjq\\fR(1) selects from what is saved as JSON.\n";
  printSection(
      "BUGS",
      {{"",
        "Please report a wrong model with the export, or a part of it, the command line and the output of "
        "vorn "
        "--version. vorn import --verbose logs what an import did to each record; a model or an export may "
        "hold confidential names."}});
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
