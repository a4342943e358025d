#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "host/modelbridge/bridge_library.h"
#include "host/modelbridge/dll_interface.h"

namespace cli {

namespace {

using JsonWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void writeText(JsonWriter& json, const char* key, const VornString& text) {
  json.Key(key);
  json.String(text.c_str(), static_cast<rapidjson::SizeType>(text.length()));
}

// Writes a JSON array, filled by `fill`, to standard output.
template <class Fill>
void printJson(Fill fill) {
  rapidjson::StringBuffer buffer;
  JsonWriter json(buffer);
  json.SetIndent(' ', 2);
  json.StartArray();
  fill(json);
  json.EndArray();
  std::cout << buffer.GetString() << '\n';
}

void printOptionsAsJson(const VornOptionList& options) {
  printJson([&](JsonWriter& json) {
    for (const auto& option : options) {
      json.StartObject();
      writeText(json, "name", option->getName());
      writeText(json, "displayName", option->getDisplayName());
      writeText(json, "description", option->getDescription());
      writeText(json, "default", option->getDefault());
      json.Key("choices");
      json.StartArray();
      for (const VornString& choice : option->getChoices()) {
        json.String(choice.c_str());
      }
      json.EndArray();
      json.EndObject();
    }
  });
}

void printIndented(const VornString& text) {
  std::istringstream lines{std::string(text.view())};
  for (std::string line; std::getline(lines, line);) {
    std::cout << (line.empty() ? "" : "    ") << line << '\n';
  }
}

void printOptions(const VornOptionList& options) {
  for (const auto& option : options) {
    std::cout << option->getDisplayName().view() << '\n';
    printIndented(option->getDescription());
    for (const VornString& choice : option->getChoices()) {
      std::cout << "  * " << choice.view() << (choice == option->getDefault() ? " (default)" : "") << '\n';
    }
    std::cout << '\n';
  }
}

std::vector<VornBridgeStage> getStages(VornImportBridgeDllInterface& bridge, const char* list) {
  std::vector<VornBridgeStage> stages;
  bridge.getStageList(stages);
  std::erase_if(stages, [&](const VornBridgeStage& stage) { return stage.list != list; });
  return stages;
}

void printStagesAsJson(const std::vector<VornBridgeStage>& stages) {
  printJson([&](JsonWriter& json) {
    for (const VornBridgeStage& stage : stages) {
      json.StartObject();
      json.Key("position");
      json.Int(stage.position);
      writeText(json, "name", stage.name);
      writeText(json, "action", stage.action);
      json.EndObject();
    }
  });
}

void printStages(const std::vector<VornBridgeStage>& stages) {
  std::size_t width = 20;
  for (const VornBridgeStage& stage : stages) {
    width = std::max(width, stage.name.length());
  }
  for (const VornBridgeStage& stage : stages) {
    std::cout << std::setw(2) << stage.position << "  " << std::left << std::setw(static_cast<int>(width))
              << (stage.name.empty() ? "-" : stage.name.c_str()) << std::right << "  " << stage.action.view()
              << '\n';
  }
}

}  // namespace

void addBridgeCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command = app.add_subcommand("bridge", "What the loaded plug-in says of itself");
  command->require_subcommand(1);
  command->footer("Example: vorn bridge sections");
  const auto asJson = std::make_shared<bool>(false);
  const auto add = [&](const char* name, const char* summary, const auto& print) {
    auto* topic = command->add_subcommand(name, summary);
    topic->add_flag("--json", *asJson, "Print JSON");
    topic->footer(std::string("Example: vorn bridge ") + name + " --json");
    topic->callback([&common, &status, asJson, print] {
      const VornBridgeLibrary library(findBridge(common));
      print(library.getInterface(), *asJson);
      status = std::cout.flush() ? kDone : kCannotWrite;
    });
  };
  const auto printStageList = [](const char* list) {
    return [list](VornImportBridgeDllInterface& bridge, bool json) {
      (json ? printStagesAsJson : printStages)(getStages(bridge, list));
    };
  };
  add("options", "The options of an import, with their choices",
      [](VornImportBridgeDllInterface& bridge, bool json) {
        VornOptionList options;
        bridge.getOptionList(options);
        (json ? printOptionsAsJson : printOptions)(options);
      });
  add("sections", "The sections of an export and what reads them", printStageList("sections"));
  add("passes", "The passes that turn the records into a model", printStageList("passes"));
}

}  // namespace cli
