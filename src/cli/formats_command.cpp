#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string_view>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "host/writers/common/dialects.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

// A command that lists the rows of a table: `print` writes one as a line, `write` as a JSON object's members.
template <class Rows, class Print, class Write>
void addList(CLI::App& app, ExitStatus& status, const std::string& name, const std::string& summary,
             const Rows& rows, const Print& print, const Write& write) {
  auto* command = app.add_subcommand(name, summary);
  const auto asJson = std::make_shared<bool>(false);
  command->add_flag("--json", *asJson, "Print JSON");
  command->footer("Example: vorn " + name + " --json");
  command->callback([&status, asJson, rows, print, write] {
    if (*asJson) {
      printJsonList(rows, write);
    } else {
      for (const auto& row : rows) {
        print(row);
      }
    }
    status = std::cout.flush() ? kDone : kCannotWrite;
  });
}

void printColumns(std::string_view first, int width, std::string_view second, std::string_view rest) {
  std::cout << std::left << std::setw(width) << first << std::setw(width) << second << rest << '\n';
}

}  // namespace

void addFormatsCommand(CLI::App& app, ExitStatus& status) {
  addList(
      app, status, "formats", "List the formats in which a model can be saved", getModelFormats(),
      [](const VornModelFormat& format) { printColumns(format.name, 10, format.extension, format.summary); },
      [](JsonWriter& json, const VornModelFormat& format) {
        writeText(json, "name", format.name);
        writeText(json, "extension", format.extension);
        writeText(json, "summary", format.summary);
      });
}

void addDialectsCommand(CLI::App& app, ExitStatus& status) {
  addList(
      app, status, "dialects", "List the dialects of SQL in which a model can be written", getSqlDialects(),
      [](const SqlDialect& dialect) { printColumns(dialect.name, 22, dialect.system, dialect.versions); },
      [](JsonWriter& json, const SqlDialect& dialect) {
        writeText(json, "name", dialect.name);
        writeText(json, "system", dialect.system);
        writeText(json, "versions", dialect.versions);
      });
}

}  // namespace cli
