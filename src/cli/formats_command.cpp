#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "host/writers/formats.h"

namespace cli {

void addFormatsCommand(CLI::App& app, ExitStatus& status) {
  auto* command = app.add_subcommand("formats", "The formats in which a model can be saved");
  const auto asJson = std::make_shared<bool>(false);
  command->add_flag("--json", *asJson, "Print JSON");
  command->footer("Example: vorn formats --json");
  command->callback([&status, asJson] {
    if (*asJson) {
      printJsonList(getModelFormats(), [](JsonWriter& json, const VornModelFormat& format) {
        writeText(json, "name", format.name);
        writeText(json, "extension", format.extension);
        writeText(json, "summary", format.summary);
      });
    } else {
      for (const VornModelFormat& format : getModelFormats()) {
        std::cout << std::left << std::setw(10) << format.name << std::setw(10) << format.extension
                  << format.summary << '\n';
      }
    }
    status = std::cout.flush() ? kDone : kCannotWrite;
  });
}

}  // namespace cli
