// The plug-in object: what the host calls.
#pragma once

#include "host/plugin/dll_interface.h"
#include "host/plugin/input_inspection.h"
#include "host/plugin/target_system_catalogue.h"

namespace silrdm {

class VornSilverrunRdm262ImportDllInterface final : public VornImportBridgeDllInterface,
                                                    public VornInputInspection,
                                                    public VornTargetSystemCatalogue {
 public:
  const VornString& getBuildVersion() override;
  void getSpecification(const VornString& identifier, VornBridgeSpecification& specification) override;
  void getOptionList(VornOptionList& options) override;
  void getDataStoreList(VornDataStoreList& dataStores) override;
  VornString getMappingSpecificationXmlFile() override;
  bool run(const VornString& identifier, VornFile& output, VornOptionList& options, VornLog& log) override;
  VornDirectoryStructureModel* browse(const VornString& path, const VornString& filter,
                                      VornOptionList& options, VornLog& log) override;
  bool test(const VornString& identifier, VornOptionList& options, VornLog& log) override;
  void getStageList(std::vector<VornBridgeStage>& stages) override;

  std::unique_ptr<VornInputInspector> makeInspector() override;
  VornRepairedInput repair(std::string bytes, const std::string& name) override;
  std::vector<VornTargetSystem> getTargetSystems() override;
};

// The bridge's version and the time of its build: "11.0.0 - 2026-11-22 03:04:05 PST".
VornString describeBuild();

}  // namespace silrdm

// Returns the plug-in's only object. The first call creates it, in any thread; it lives until the library is
// unloaded.
extern "C" OrsaDllInterface* getVornSilverrunRdm262ImportInterface();
