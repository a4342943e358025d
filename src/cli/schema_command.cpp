#include <CLI/CLI.hpp>
#include <iostream>
#include <string_view>

#include "cli/commands.h"

namespace cli {

namespace {

constexpr std::string_view kSchema =
#include "cli/store_model_schema.inc"
    ;

}  // namespace

void addSchemaCommand(CLI::App& app, ExitStatus& status) {
  auto* command =
      app.add_subcommand("schema", "Print the JSON Schema (draft 2020-12) of a model saved as JSON");
  command->footer("Example: vorn schema > store-model.schema.json");
  command->callback([&status] { status = std::cout << kSchema << std::flush ? kDone : kCannotWrite; });
}

}  // namespace cli
