// The bases of a bridge's plug-in object: what a host can ask of a bridge.
//
// A bridge is a shared library that exports one function, without arguments, which returns its plug-in
// object. A library VornXyzImport.so exports getVornXyzImportInterface (see VornBridgeLibrary).
#pragma once

#include <vector>

#include "host/base/file.h"
#include "host/base/log.h"
#include "host/base/options.h"
#include "host/base/text.h"
#include "host/plugin/bridge_specification.h"

class VornDataStoreList;
class VornDirectoryStructureModel;
class VornStoreModel;

// One step of what a bridge does, for a host that wants to show it.
struct VornBridgeStage {
  VornString list;  // the list that contains it: "sections" or "passes"
  int position = 0;
  VornString name;
  VornString action;  // what is done there
};

// Root of every plug-in object.
class OrsaDllInterface {
 public:
  OrsaDllInterface() = default;
  OrsaDllInterface(const OrsaDllInterface&) = default;
  OrsaDllInterface& operator=(const OrsaDllInterface&) = default;
  virtual ~OrsaDllInterface();

  // The text is made by the first call, which must not be made on two threads at a time.
  virtual const VornString& getBuildVersion() = 0;

 protected:
  VornString buildVersion;
};

class VornBridgeDllInterface : public OrsaDllInterface {
 public:
  // Fills `specification` with what the bridge of that identifier is.
  virtual void getSpecification(const VornString& identifier, VornBridgeSpecification& specification) = 0;
  // Replaces the contents of `options` with the bridge's options.
  virtual void getOptionList(VornOptionList& options) = 0;
  // Adds the data stores that the bridge knows. A bridge that does not say otherwise knows none.
  virtual void getDataStoreList(VornDataStoreList& dataStores);
  virtual VornString getMappingSpecificationXmlFile() = 0;

  // Hands the model to the destination of `output`. Throws VornException if it cannot be saved.
  static void saveStoreModel(VornFile& output, VornStoreModel& model, VornLog& log);
};

class VornImportBridgeDllInterface : public VornBridgeDllInterface {
 public:
  // Imports what `options` name and saves the model into `output`. Returns true; a failure is a
  // VornException, and nothing is saved. One import at a time.
  virtual bool run(const VornString& identifier, VornFile& output, VornOptionList& options, VornLog& log) = 0;
  // What a path of the source holds. The result is the caller's.
  virtual VornDirectoryStructureModel* browse(const VornString& path, const VornString& filter,
                                              VornOptionList& options, VornLog& log) = 0;
  // Whether an import with these options can start. Logs what is missing.
  virtual bool test(const VornString& identifier, VornOptionList& options, VornLog& log) = 0;
  // Adds the steps of an import in their order. By default a bridge has none to show.
  virtual void getStageList(std::vector<VornBridgeStage>& stages);
};
