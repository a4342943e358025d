// Shell completion, made from the commands as the command line knows them.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <sstream>

#include "cli/command_tree.h"
#include "cli/commands.h"
#include "cli/input_look.h"
#include "host/base/exception.h"
#include "host/base/options.h"
#include "host/base/text.h"
#include "host/encoding/encodings.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"

namespace cli {

namespace {

using Words = std::vector<std::string>;

// In single quotes; within them `escapeQuote` is how the shell has one.
std::string quote(const std::string& text, const char* escapeQuote = "'\\''") {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c == '\'' ? escapeQuote : std::string(1, c);
  }
  return quoted + "'";
}

// Options whose values are too many for the help, or known to the bridge alone.
struct FurtherChoices {
  Words encodings;
  Words versions;
};

FurtherChoices findFurtherChoices(const CommonOptions& common) {
  FurtherChoices choices{{kDetectedEncoding}, {}};
  for (const VornEncoding& encoding : getEncodings()) {
    if (!encoding.converter.empty()) {
      choices.encodings.push_back(CLI::detail::to_lower(std::string(encoding.converter)));
    }
  }
  try {
    const VornBridgeLibrary library(findBridge(common));
    VornOptionList options;
    library.getInterface().getOptionList(options);
    if (const VornOption* option = options.get("Version")) {
      for (const VornString& choice : option->getChoices()) {
        std::istringstream versions{std::string(choice.view())};
        for (std::string version; std::getline(versions, version, '/');) {
          choices.versions.push_back(version);
        }
      }
    }
  } catch (const VornException&) {
    // Without a bridge there is nothing to choose from.
  }
  return choices;
}

std::vector<CommandPage> listCompletedCommands(const CLI::App& app, const CommonOptions& common) {
  const FurtherChoices further = findFurtherChoices(common);
  std::vector<CommandPage> commands = listCommands(app);
  for (CommandPage& command : commands) {
    for (OptionPage& option : command.options) {
      const Words* choices = option.value == "ENCODING"  ? &further.encodings
                             : option.value == "VERSION" ? &further.versions
                                                         : nullptr;
      if (choices != nullptr && !choices->empty()) {
        option.choices = *choices;
        option.kind = ValueKind::choice;
      }
    }
  }
  return commands;
}

const OptionPage* findPositional(const CommandPage& command) {
  const auto found = std::ranges::find_if(command.options, &OptionPage::isPositional);
  return found == command.options.end() ? nullptr : &*found;
}

// The summaries of a command's commands, in their order.
Words getSummaries(const CommandPage& command, const std::vector<CommandPage>& commands) {
  Words summaries;
  for (const std::string& name : command.subcommands) {
    const auto found = std::ranges::find(commands, command.path + " " + name, &CommandPage::path);
    summaries.push_back(found == commands.end() ? "" : found->summary);
  }
  return summaries;
}

// What differs between bash and zsh: how words are offered, with what they mean where the shell shows that.
struct Shell {
  const char* begin;
  const char* end;
  const char* offerFiles;
  const char* offerFolders;
  const char* offerNothing;
  std::string (*offer)(const Words& words, const Words& meanings);
};

std::string offerInBash(const Words& words, const Words& /*meanings*/) {
  return "mapfile -t COMPREPLY < <(compgen -W " + quote(join(words, " ")) + " -- \"$word\")";
}

std::string offerInZsh(const Words& words, const Words& meanings) {
  std::string text = "offered=(";
  for (std::size_t i = 0; i < words.size(); ++i) {
    text += quote(words[i] + (meanings.empty() ? "" : ":" + meanings[i])) + " ";
  }
  return text + "); _describe word offered";
}

// Both scripts follow the words before the cursor to the command they name, `at`. Bash takes the = of
// --option=value for a word; zsh has the whole as one.
constexpr Shell kBash = {
    R"(# Completion of vorn for bash: source it, or put it where bash-completion looks.
_vorn() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} at=vorn i
  COMPREPLY=()
  if [ "$word" = = ]; then
    word=
  elif [ "$previous" = = ]; then
    previous=${COMP_WORDS[COMP_CWORD-2]}
  fi
  for ((i = 1; i < COMP_CWORD; i++)); do
    local next="$at ${COMP_WORDS[i]}"
)",
    R"(}
complete -F _vorn vorn
)",
    "compopt -o default",
    "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$word\")",
    ":",
    offerInBash};
constexpr Shell kZsh = {
    R"(#compdef vorn
# Completion of vorn for zsh: put it as _vorn into a folder of fpath, or source it after compinit.
_vorn() {
  local word=${words[CURRENT]} previous=${words[CURRENT-1]} at=vorn i
  local -a offered
  if [[ $word == --*=* ]]; then
    previous=${word%%=*} word=${word#*=}
    compset -P '*='
  fi
  for ((i = 2; i < CURRENT; i++)); do
    local next="$at ${words[i]}"
)",
    R"(}
if [ "$funcstack[1]" = _vorn ]; then _vorn "$@"; else compdef _vorn vorn; fi
)",
    "_files",
    "_files -/",
    ":",
    offerInZsh};

std::string offerValue(const Shell& shell, const OptionPage& option) {
  switch (option.kind) {
    case ValueKind::choice:
      return shell.offer(option.choices, {});
    case ValueKind::file:
      return shell.offerFiles;
    case ValueKind::folder:
      return shell.offerFolders;
    case ValueKind::none:
    case ValueKind::other:
      break;
  }
  return shell.offerNothing;
}

void printValues(const Shell& shell, const CommandPage& command, bool everywhere) {
  for (const OptionPage& option : command.options) {
    if (option.value.empty() || option.isPositional) {
      continue;
    }
    Words patterns;
    for (const std::string& name : option.names) {
      patterns.push_back((everywhere ? "vorn*" : quote(command.path)) + "/" + name);
    }
    std::cout << "    " << join(patterns, "|") << ") " << offerValue(shell, option) << "; return ;;\n";
  }
}

// What can begin at a word: an option where it begins with -, else a command or what the command takes.
void printWords(const Shell& shell, const CommandPage& command, const CommandPage& program,
                const std::vector<CommandPage>& commands) {
  Words options;
  Words meanings;
  const auto addOptions = [&](const CommandPage& of) {
    for (const OptionPage& option : of.options) {
      const bool isRepeated = &of != &command && option.names.back() == "--help";
      if (!option.isPositional && !isRepeated) {
        options.push_back(option.names.back());
        meanings.push_back(option.summary);
      }
    }
  };
  addOptions(command);
  if (&command != &program) {
    addOptions(program);
  }
  std::cout << "    " << quote(command.path + "/") << "-*) " << shell.offer(options, meanings) << " ;;\n";
  const OptionPage* positional = findPositional(command);
  std::cout << "    " << quote(command.path + "/") << "*) "
            << (!command.subcommands.empty()
                    ? shell.offer(command.subcommands, getSummaries(command, commands))
                : positional != nullptr ? offerValue(shell, *positional)
                                        : shell.offerNothing)
            << " ;;\n";
}

void printCaseCompletion(const Shell& shell, const std::vector<CommandPage>& commands) {
  Words paths;
  for (auto command = commands.begin() + 1; command != commands.end(); ++command) {
    paths.push_back(quote(command->path));
  }
  std::cout << shell.begin << "    case \"$next\" in\n      " << join(paths, "|")
            << ") at=$next ;;\n    esac\n"
            << "  done\n  case \"$at/$previous\" in\n";
  for (const CommandPage& command : commands) {
    printValues(shell, command, &command == &commands.front());
  }
  std::cout << "  esac\n  case \"$at/$word\" in\n";
  for (const CommandPage& command : commands) {
    printWords(shell, command, commands.front(), commands);
  }
  std::cout << "  esac\n" << shell.end;
}

void printBashCompletion(const std::vector<CommandPage>& commands) {
  printCaseCompletion(kBash, commands);
}

void printZshCompletion(const std::vector<CommandPage>& commands) {
  printCaseCompletion(kZsh, commands);
}

std::string quoteInFish(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    escaped += c == '\\' ? "\\\\" : std::string(1, c);
  }
  return quote(escaped, "\\'");
}

// What fish is to offer for an option's value.
std::string getFishValue(const OptionPage& option) {
  switch (option.kind) {
    case ValueKind::choice:
      return " -x -a " + quoteInFish(join(option.choices, " "));
    case ValueKind::file:
      return " -r -F";
    case ValueKind::folder:
      return " -x -a '(__fish_complete_directories)'";
    case ValueKind::other:
      return " -x";
    case ValueKind::none:
      break;
  }
  return "";
}

// Fish has a rule for each option and each word.
void printFishCompletion(const std::vector<CommandPage>& commands) {
  Words paths;
  for (const CommandPage& command : commands) {
    paths.push_back(quoteInFish(command.path));
  }
  std::cout
      << "# Completion of vorn for fish: put it as vorn.fish into ~/.config/fish/completions, or source it.\n"
         "function __vorn_at --description 'Whether the words before the cursor name this command'\n"
         "  set -l at vorn\n"
         "  for word in (commandline -opc)[2..-1]\n"
         "    contains -- \"$at $word\" "
      << join(paths, " ")
      << "; and set at \"$at $word\"\n"
         "  end\n"
         "  test \"$at\" = \"$argv\"\n"
         "end\n";
  for (const CommandPage& command : commands) {
    const bool isProgram = &command == &commands.front();
    const std::string here = "complete -c vorn -n " + quoteInFish("__vorn_at " + command.path);
    const OptionPage* positional = findPositional(command);
    if (positional == nullptr || positional->kind != ValueKind::file) {
      std::cout << here << " -f\n";
    }
    if (positional != nullptr && positional->kind == ValueKind::choice) {
      std::cout << here << " -a " << quoteInFish(join(positional->choices, " ")) << '\n';
    }
    const Words summaries = getSummaries(command, commands);
    for (std::size_t i = 0; i < summaries.size(); ++i) {
      std::cout << here << " -a " << command.subcommands[i] << " -d " << quoteInFish(summaries[i]) << '\n';
    }
    for (const OptionPage& option : command.options) {
      if (option.isPositional) {
        continue;
      }
      std::cout << (isProgram && option.names.back() != "--help" ? "complete -c vorn" : here);
      for (const std::string& name : option.names) {
        std::cout << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
      }
      std::cout << getFishValue(option) << " -d " << quoteInFish(option.summary) << '\n';
    }
  }
}

}  // namespace

void addCompletionCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command = app.add_subcommand("completion", "Print the completion script for a shell");
  command->require_subcommand(1);
  command->footer("Example: vorn completion bash > ~/.local/share/bash-completion/completions/vorn");
  const auto add = [&](const char* name, const char* file, void (*print)(const std::vector<CommandPage>&)) {
    auto* subcommand = command->add_subcommand(name, std::string("Print the script for ") + name);
    subcommand->footer(std::string("Example: vorn completion ") + name + " > " + file);
    subcommand->callback([&app, &common, &status, print] {
      print(listCompletedCommands(app, common));
      status = std::cout.flush() ? kDone : kCannotWrite;
    });
  };
  add("bash", "~/.local/share/bash-completion/completions/vorn", printBashCompletion);
  add("zsh", "~/.zfunc/_vorn  # a folder of fpath", printZshCompletion);
  add("fish", "~/.config/fish/completions/vorn.fish", printFishCompletion);
}

}  // namespace cli
