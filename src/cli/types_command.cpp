#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "host/writers/common/dialects.h"
#include "host/writers/common/type_rules.h"

namespace cli {

namespace {

void print(const TypeRule& rule) {
  std::cout << rule.source << '\t' << rule.lengths << '\t' << rule.scales << '\t' << rule.dialect << '\t'
            << rule.target << '\t' << rule.loses << '\n';
}

// The rules of data stores go first, for the first rule that fits counts.
void printRules(std::string_view dialect) {
  std::cout << kTypeRulesHeading << '\n';
  for (const bool ofStore : {true, false}) {
    for (const TypeRule& rule : getTypeRules()) {
      const bool isOfStore = rule.source.find(':') != std::string_view::npos;
      if (isOfStore == ofStore && (dialect.empty() || rule.dialect == dialect)) {
        print(rule);
      }
    }
  }
}

}  // namespace

void addTypesCommand(CLI::App& app, ExitStatus& status) {
  auto* command = app.add_subcommand("types", "List the types that columns get in each dialect of SQL");
  const auto dialect = std::make_shared<std::string>();
  command->add_option("--dialect", *dialect, "Print only this dialect")
      ->type_name(join(getSqlDialects(), "|", &SqlDialect::name));
  command->footer(
      "To change types, edit the table and pass it to vorn import --types FILE\n"
      "Example: vorn types --dialect postgresql > types.tsv");
  command->callback([&status, dialect] {
    if (!dialect->empty() && findSqlDialect(*dialect) == nullptr) {
      throw UsageError("there is no dialect '" + *dialect + "': `vorn dialects` lists them");
    }
    printRules(*dialect);
    status = std::cout.flush() ? kDone : kCannotWrite;
  });
}

}  // namespace cli
