// Shell completion, made from the commands as they are.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/command_tree.h"
#include "cli/commands.h"

namespace cli {

namespace {

std::string join(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : between) + word;
  }
  return text;
}

// In single quotes, as both shells have them.
std::string quote(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c == '\'' ? "'\\''" : std::string(1, c);
  }
  return quoted + "'";
}

// What differs between the shells: how words are offered, with what they mean where the shell shows that.
struct Shell {
  const char* begin;
  const char* end;
  const char* offerFiles;
  std::string (*offer)(const std::vector<std::string>& words, const std::vector<std::string>& meanings);
};

std::string offerInBash(const std::vector<std::string>& words, const std::vector<std::string>& /*meanings*/) {
  return "mapfile -t COMPREPLY < <(compgen -W " + quote(join(words, " ")) + " -- \"$word\")";
}

std::string offerInZsh(const std::vector<std::string>& words, const std::vector<std::string>& meanings) {
  std::string text = "offered=(";
  for (std::size_t i = 0; i < words.size(); ++i) {
    text += quote(words[i] + (meanings.empty() ? "" : ":" + meanings[i])) + " ";
  }
  return text + "); _describe word offered";
}

// Both scripts follow the words before the cursor to the command they name, `at`. Bash then completes files
// where nothing is offered.
constexpr Shell kBash = {
    R"(# Completion of vorn for bash: source it, or put it where bash-completion looks.
_vorn() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} at=vorn i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    local next="$at ${COMP_WORDS[i]}"
)",
    R"(}
complete -o default -F _vorn vorn
)",
    ":", offerInBash};
constexpr Shell kZsh = {
    R"(#compdef vorn
# Completion of vorn for zsh: put it as _vorn into a folder of fpath, or source it behind compinit.
_vorn() {
  local word=${words[CURRENT]} previous=${words[CURRENT-1]} at=vorn i
  local -a offered
  for ((i = 2; i < CURRENT; i++)); do
    local next="$at ${words[i]}"
)",
    R"(}
if [ "$funcstack[1]" = _vorn ]; then _vorn "$@"; else compdef _vorn vorn; fi
)",
    "_files", offerInZsh};

void printValues(const Shell& shell, const CommandPage& command, bool everywhere) {
  for (const OptionPage& option : command.options) {
    if (option.value.empty() || option.isPositional) {
      continue;
    }
    std::vector<std::string> patterns;
    for (const std::string& name : option.names) {
      patterns.push_back((everywhere ? "vorn*" : quote(command.path)) + "/" + name);
    }
    std::cout << "    " << join(patterns, "|") << ") "
              << (option.choices.empty() ? shell.offerFiles : shell.offer(option.choices, {}))
              << "; return ;;\n";
  }
}

// What can stand where a word begins: an option where it begins with -, else a command or a file.
void printWords(const Shell& shell, const CommandPage& command, const CommandPage& program,
                const std::vector<CommandPage>& commands) {
  std::vector<std::string> options;
  std::vector<std::string> meanings;
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
  std::vector<std::string> summaries;
  for (const std::string& name : command.subcommands) {
    for (const CommandPage& subcommand : commands) {
      if (subcommand.path == command.path + " " + name) {
        summaries.push_back(subcommand.summary);
      }
    }
  }
  std::cout << "    " << quote(command.path + "/") << "*) "
            << (command.subcommands.empty() ? shell.offerFiles : shell.offer(command.subcommands, summaries))
            << " ;;\n";
}

void printCompletion(const Shell& shell, const std::vector<CommandPage>& commands) {
  std::vector<std::string> paths;
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

}  // namespace

void addCompletionCommand(CLI::App& app, ExitStatus& status) {
  auto* command = app.add_subcommand("completion", "Print what lets a shell complete command lines");
  command->require_subcommand(1);
  command->footer("Example: vorn completion bash > ~/.local/share/bash-completion/completions/vorn");
  const auto add = [&](const char* name, const char* file, const Shell& shell) {
    auto* subcommand = command->add_subcommand(name, std::string("For ") + name);
    subcommand->footer(std::string("Example: vorn completion ") + name + " > " + file);
    subcommand->callback([&app, &status, &shell] {
      printCompletion(shell, listCommands(app));
      status = std::cout.flush() ? kDone : kCannotWrite;
    });
  };
  add("bash", "~/.local/share/bash-completion/completions/vorn", kBash);
  add("zsh", "~/.zfunc/_vorn  # a folder of fpath", kZsh);
}

}  // namespace cli
