#include <CLI/CLI.hpp>
#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "host/datatypes/data_stores.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/plugin/target_system_catalogue.h"

namespace cli {

namespace {

void printOptionsAsJson(const VornOptionList& options) {
  printJsonList(options, [](JsonWriter& json, const auto& option) {
    writeText(json, "name", option->getName().view());
    writeText(json, "displayName", option->getDisplayName().view());
    writeText(json, "description", option->getDescription().view());
    writeText(json, "default", option->getDefault().view());
    json.Key("choices");
    json.StartArray();
    for (const VornString& choice : option->getChoices()) {
      json.String(choice.c_str());
    }
    json.EndArray();
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
  printJsonList(stages, [](JsonWriter& json, const VornBridgeStage& stage) {
    json.Key("position");
    json.Int(stage.position);
    writeText(json, "name", stage.name.view());
    writeText(json, "action", stage.action.view());
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

// A fact of a specification: how it is called on a terminal and in JSON.
struct SpecificationField {
  const char* label;
  const char* key;
  VornString VornBridgeSpecification::*value;
};

constexpr SpecificationField kSpecificationFields[] = {
    {"Vendor", "vendor", &VornBridgeSpecification::vendorName},
    {"Tool", "tool", &VornBridgeSpecification::toolName},
    {"Versions", "toolVersions", &VornBridgeSpecification::toolVersions},
    {"Web", "web", &VornBridgeSpecification::toolWeb},
    {"Category", "category", &VornBridgeSpecification::toolCategory},
    {"Interface", "interface", &VornBridgeSpecification::toolInterface},
    {"Coverage", "coverage", &VornBridgeSpecification::metadataCoverage},
    {"Methodology", "methodology", &VornBridgeSpecification::methodology},
    {"Build", "buildVersion", &VornBridgeSpecification::buildVersion},
};

void printSpecification(VornImportBridgeDllInterface& bridge, bool asJson) {
  VornBridgeSpecification specification;
  bridge.getSpecification(kImporter, specification);
  const VornString mapping = bridge.getMappingSpecificationXmlFile();
  if (asJson) {
    printJson([&](JsonWriter& json) {
      json.StartObject();
      for (const SpecificationField& field : kSpecificationFields) {
        writeText(json, field.key, (specification.*field.value).view());
      }
      writeText(json, "mapping", mapping.view());
      writeText(json, "description", specification.description.view());
      json.EndObject();
    });
    return;
  }
  const auto printLine = [](const char* label, const VornString& value) {
    std::cout << std::left << std::setw(13) << label << value.view() << '\n';
  };
  for (const SpecificationField& field : kSpecificationFields) {
    if (!(specification.*field.value).empty()) {
      printLine(field.label, specification.*field.value);
    }
  }
  printLine("Mapping", mapping);
  std::cout << '\n'
            << specification.description.view() << "\n\n"
            << "(The text above is the bridge's, for any host. vorn has no conf/conf.properties: its option "
               "--verbose "
               "logs debug messages.)\n";
}

void printDataStores(VornImportBridgeDllInterface& bridge, bool asJson) {
  VornDataStoreList dataStores;
  bridge.getDataStoreList(dataStores);
  if (asJson) {
    printJsonList(dataStores, [](JsonWriter& json, const VornDataStore& dataStore) {
      writeText(json, "dataStore", dataStore.version->getDataStore().view());
      writeText(json, "version", dataStore.version->getVersionText().view());
      writeText(json, "toolVersions", dataStore.toolVersions.view());
      json.Key("types");
      json.StartArray();
      for (const std::string_view name : dataStore.version->getTypeNames()) {
        json.String(name.data(), static_cast<rapidjson::SizeType>(name.size()));
      }
      json.EndArray();
    });
    return;
  }
  for (const VornDataStore& dataStore : dataStores) {
    std::cout << std::left << std::setw(24) << dataStore.version->getDataStore().view() << std::setw(8)
              << dataStore.version->getVersionText().view() << std::right << std::setw(4)
              << dataStore.version->getTypeNames().size() << " types, tool " << dataStore.toolVersions.view()
              << '\n';
  }
}

void printSystems(VornImportBridgeDllInterface& bridge, bool asJson) {
  auto* const catalogue = dynamic_cast<VornTargetSystemCatalogue*>(&bridge);
  const auto systems = catalogue == nullptr ? std::vector<VornTargetSystem>() : catalogue->getTargetSystems();
  if (asJson) {
    printJsonList(systems, [](JsonWriter& json, const VornTargetSystem& system) {
      writeText(json, "name", system.name.view());
      writeText(json, "version", system.version.view());
      writeText(json, "dataStore", system.dataStore.view());
      writeText(json, "dataStoreVersion", system.dataStoreVersion.view());
      writeText(json, "hostName", system.hostName.view());
    });
    return;
  }
  for (const VornTargetSystem& system : systems) {
    std::cout << std::left << std::setw(27) << system.name.view() << std::setw(6) << system.version.view()
              << std::right << system.hostName.view() << '\n';
  }
}

}  // namespace

void addBridgeCommand(CLI::App& app, const CommonOptions& common, ExitStatus& status) {
  auto* command = app.add_subcommand("bridge", "Show what the loaded plug-in says about itself");
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
  add("options", "Show the options of an import, with their choices",
      [](VornImportBridgeDllInterface& bridge, bool json) {
        VornOptionList options;
        bridge.getOptionList(options);
        (json ? printOptionsAsJson : printOptions)(options);
      });
  add("specification", "Show what the bridge is and what it is for", printSpecification);
  add("data-stores", "List the data stores that the bridge knows, each with its data types", printDataStores);
  add("systems", "List the target systems that an export can name, and the data store of each", printSystems);
  add("sections", "List the sections of an export, each with its loader", printStageList("sections"));
  add("passes", "List the passes that turn the records into a model", printStageList("passes"));
}

}  // namespace cli
