// The program's commands. Each adds itself, with its options and help, to the command line; when the command
// line names it, it runs and leaves its exit status.
#pragma once

#include <stdexcept>
#include <string>

#include "cli/exit_status.h"

namespace CLI {
class App;
}

namespace cli {

// What the program calls its imports by, as the host knows the bridge.
inline constexpr const char* kImporter = "SilverrunRdm262Import";

// What every command understands.
struct CommonOptions {
  bool quiet = false;
  bool verbose = false;
  bool failOnWarning = false;
  std::string bridge;  // the plug-in's file; empty: the one beside the program
};

// Arguments that the command line's grammar allows but that make no sense.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The arguments must outlive the command line.
void addImportCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status);
void addRepairCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status);
void addInfoCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status);
void addBridgeCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status);
void addEncodingsCommand(CLI::App& app, ExitStatus& status);
void addFormatsCommand(CLI::App& app, ExitStatus& status);
void addTypesCommand(CLI::App& app, ExitStatus& status);
void addDialectsCommand(CLI::App& app, ExitStatus& status);
void addSchemaCommand(CLI::App& app, ExitStatus& status);
void addCompletionCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status);
void addManCommand(CLI::App& app, ExitStatus& status);

// The plug-in's file: the one that is asked for, by option or environment (VORN_BRIDGE), or else the one that
// is installed with the program.
std::string findBridge(const CommonOptions& common);

}  // namespace cli
