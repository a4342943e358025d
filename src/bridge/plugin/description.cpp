// The descriptions that the bridge gives of itself.
#include <utility>

#include "bridge/inspection/export_inspection.h"
#include "bridge/inspection/export_repair.h"
#include "bridge/messages/tavik.h"
#include "bridge/messages/texts.h"
#include "bridge/pipeline/passes.h"
#include "bridge/pipeline/sections.h"
#include "bridge/plugin/build_time.h"
#include "bridge/plugin/plugin.h"
#include "bridge/target_systems/target_systems.h"
#include "host/base/date.h"
#include "host/base/pemo.h"
#include "host/datatypes/data_stores.h"
#include "host/services/input_files.h"

namespace silrdm {

VornString describeBuild() {
  return VornString("11.0.0 - ") + VornDate(kBuildTime).getPstTimestamp();
}

const VornString& VornSilverrunRdm262ImportDllInterface::getBuildVersion() {
  if (buildVersion.empty()) {
    buildVersion = describeBuild();
  }
  return buildVersion;
}

void VornSilverrunRdm262ImportDllInterface::getSpecification(const VornString& /*identifier*/,
                                                             VornBridgeSpecification& specification) {
  const auto& literal = TAVIK::BRIDGE_SPEC_SILVERRUNRDM262_IMPORT;
  const VornString& descriptionName = literal.getInternalCode_DescriptionLiteralId();
  VornString description = VornString("*** ") + descriptionName;
  if (const VornTextLiteral* text = findLiteral(descriptionName)) {
    description = text->getText();
  }
  specification.initialize(literal.getTool_Web(), literal.getVendor_Name(), literal.getTool_Name(),
                           literal.getTool_Versions(), literal.getMethodology_ToolCategory(),
                           literal.getMethodology_MetadataCoverage_Summary(),
                           literal.getToolInterface_Summary(), literal.getMethodology_Summary(),
                           getBuildVersion(), description, false);
}

void VornSilverrunRdm262ImportDllInterface::getDataStoreList(VornDataStoreList& dataStores) {
  for (const targetDatabaseInfo& entry : silrdm::getTargetSystems()) {
    addDataStore(dataStores, "2.4.4 to 2.7.2", entry);
  }
}

VornString VornSilverrunRdm262ImportDllInterface::getMappingSpecificationXmlFile() {
  return "VornSilverrunRdmImport";
}

bool VornSilverrunRdm262ImportDllInterface::test(const VornString& /*identifier*/, VornOptionList& options,
                                                 VornLog& log) {
  return testRequiredInputFiles(options, log, false);
}

VornDirectoryStructureModel* VornSilverrunRdm262ImportDllInterface::browse(const VornString& /*path*/,
                                                                           const VornString& /*filter*/,
                                                                           VornOptionList& /*options*/,
                                                                           VornLog& /*log*/) {
  PEMO::UNSUPPORTED_BRIDGE_OPERATION.throwException({"SilverrunRdm262Import", "browse"});
}

void VornSilverrunRdm262ImportDllInterface::getStageList(std::vector<VornBridgeStage>& stages) {
  for (const Section& section : kSections) {
    stages.push_back({"sections", section.position, section.name, section.readerName});
  }
  for (const Pass& pass : kPasses) {
    stages.push_back({"passes", pass.position, pass.name, pass.purpose});
  }
}

std::unique_ptr<VornInputInspector> VornSilverrunRdm262ImportDllInterface::makeInspector() {
  return std::make_unique<ExportInspector>();
}

VornRepairedInput VornSilverrunRdm262ImportDllInterface::repair(std::string bytes, const std::string& name) {
  return repairExport(std::move(bytes), name);
}

std::vector<VornTargetSystem> VornSilverrunRdm262ImportDllInterface::getTargetSystems() {
  std::vector<VornTargetSystem> systems;
  for (const targetDatabaseInfo& entry : silrdm::getTargetSystems()) {
    systems.push_back({entry.systemName, entry.systemVersion, entry.getDataStore(), entry.getVersionText(),
                       entry.dataStoreVersionName});
  }
  return systems;
}

}  // namespace silrdm
