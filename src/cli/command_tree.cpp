#include "cli/command_tree.h"

#include <CLI/CLI.hpp>
#include <sstream>

namespace cli {

namespace {

OptionPage describeOption(const CLI::Option& option) {
  OptionPage page;
  page.isPositional = option.get_positional();
  if (page.isPositional) {
    page.names.push_back(option.get_name(true));
  }
  for (const std::string& name : option.get_snames()) {
    page.names.push_back("-" + name);
  }
  for (const std::string& name : option.get_lnames()) {
    page.names.push_back("--" + name);
  }
  page.summary = option.get_description();
  if (option.get_items_expected_max() > 0) {
    page.value = option.get_type_name();
  }
  if (page.value.find('|') != std::string::npos || page.value == CLI::detail::to_lower(page.value)) {
    page.choices = CLI::detail::split(page.value, '|');
    std::erase(page.choices, "");
  }
  page.kind = page.value.empty()       ? ValueKind::none
              : !page.choices.empty()  ? ValueKind::choice
              : page.value == "FILE"   ? ValueKind::file
              : page.value == "FOLDER" ? ValueKind::folder
                                       : ValueKind::other;
  return page;
}

void listCommand(const CLI::App& command, const std::string& parent, std::vector<CommandPage>& pages) {
  CommandPage page;
  page.path = parent + command.get_name();
  page.summary = command.get_description();
  for (const CLI::Option* option : command.get_options()) {
    page.options.push_back(describeOption(*option));
  }
  constexpr std::string_view kExample = "Example: ";
  std::istringstream lines(command.get_footer());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(kExample)) {
      page.examples.push_back(line.substr(kExample.size()));
    }
  }
  const auto subcommands = command.get_subcommands([](const CLI::App*) { return true; });
  for (const CLI::App* subcommand : subcommands) {
    page.subcommands.push_back(subcommand->get_name());
  }
  const std::string path = page.path + " ";
  pages.push_back(std::move(page));
  for (const CLI::App* subcommand : subcommands) {
    listCommand(*subcommand, path, pages);
  }
}

}  // namespace

std::vector<CommandPage> listCommands(const CLI::App& app) {
  std::vector<CommandPage> pages;
  listCommand(app, "", pages);
  return pages;
}

}  // namespace cli
