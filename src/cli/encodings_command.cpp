#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "host/encoding/encodings.h"

namespace cli {

namespace {

void printEncodings() {
  for (const VornEncoding& encoding : getEncodings()) {
    const bool isDefault = encoding.name == getDefaultEncoding().name;
    const std::string_view note = encoding.converter.empty() ? "texts stay unchanged" : encoding.converter;
    std::cout << std::left << std::setw(38) << encoding.name << note << (isDefault ? " (default)" : "")
              << '\n';
  }
}

void printEncodingsAsJson() {
  printJsonList(getEncodings(), [](JsonWriter& json, const VornEncoding& encoding) {
    writeText(json, "name", encoding.name);
    writeText(json, "shortName", encoding.converter);
  });
}

}  // namespace

void addEncodingsCommand(CLI::App& app, ExitStatus& status) {
  auto* command = app.add_subcommand("encodings", "List the encodings that an export's texts may have");
  const auto asJson = std::make_shared<bool>(false);
  command->add_flag("--json", *asJson, "Print JSON");
  command->footer(
      "--encoding accepts the name, the short name or another common name of an encoding.\n"
      "Example: vorn encodings --json");
  command->callback([&status, asJson] {
    (*asJson ? printEncodingsAsJson : printEncodings)();
    status = std::cout.flush() ? kDone : kCannotWrite;
  });
}

}  // namespace cli
