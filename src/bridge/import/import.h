// Import: one import, from opening its export to the finished model. Loaders and passes are given it and
// nothing else, so that imports in several threads do not meet.
#pragma once

#include <vector>

#include "bridge/elements/registries.h"
#include "bridge/reader/export_reader.h"
#include "bridge/reporting/reporter.h"
#include "bridge/target_systems/type_conversion.h"

class VornClassDiagram;
class VornDatabaseSchema;
class VornDesignPackage;
class VornLog;
class VornStoreModel;

namespace silrdm {

// A relationship's record, for reports after its element is destroyed.
struct RelationshipRecord {
  explicit RelationshipRecord(const VornAssociation& association);

  RecordPlace place;
  VornString identifier;
  VornString name;
};

// What the host asks of an import.
struct ImportOptions {
  VornString identifier;               // the caller's name for the import
  VornString encoding;                 // of the export's texts: a choice of the option "Encoding"
  bool roleNameAtDestination = false;  // role names are at the far end of their link
};

class Import {
 public:
  // The log and the empty model must outlive the import.
  Import(ImportOptions importOptions, VornLog& importLog, VornStoreModel& importedModel,
         Reporter::SectionName sectionName);
  Import(const Import&) = delete;
  Import& operator=(const Import&) = delete;
  // Destroys all parsed elements, and the host objects that the model does not own.
  ~Import();

  // Destroys the elements of the model's objects. Afterwards registries can be walked, but not searched.
  void resetGeneralPointers();

  // See Reporter::report.
  template <class... Arguments>
  void report(Irregularity kind, const Arguments&... arguments) {
    reporter.report(kind, arguments...);
  }

  const ImportOptions options;
  VornLog& log;
  VornStoreModel& storeModel;
  Reporter reporter;
  ExportReader reader{reporter};

  // Owned by the model.
  VornDesignPackage* designPackage = nullptr;   // "Logical View"
  VornClassDiagram* mainDiagram = nullptr;      // "<Main Subject Area>", in the design package
  VornDatabaseSchema* defaultSchema = nullptr;  // created when needed
  VornStringHashSet defaultPlacedNames{15};     // the names already placed in it
  bool hasCandidateKeys = false;                // among the keys that have columns
  bool hasOtherKeys = false;
  std::vector<RelationshipRecord> subtypeLinks;  // relationships that became subtypes; if reports are wanted

  std::unique_ptr<SILRDMSchema> currentSchema;               // what the schema section says, or null
  const targetDatabaseInfo* detectedTargetSystem = nullptr;  // the export's, or null
  TypeConversion typeConversion{log, reporter};

  // Destroyed from the last to the first.
  SILObjectRegistry<VornDatabaseSchema> userRegistry;
  SILObjectRegistry<VornSQLViewEntity> viewRegistry;
  SILElementRegistry<SILRDMCombinationColumn> combinationColumnRegistry;
  SILElementRegistry<SILRDMDataType> dataTypeRegistry;
  SILObjectRegistry<VornKey> combinationRegistry;
  SILObjectRegistry<VornGeneralization> specializationRegistry;
  SILObjectRegistry<VornAssociationRole> roleRegistry;
  SILObjectRegistry<VornAssociation> relationshipRegistry;
  SILObjectRegistry<VornDerivedType> domainRegistry;
  SILObjectRegistry<VornDerivedType> commonItemRegistry;
  SILObjectRegistry<VornAttribute> attributeRegistry;
  SILObjectRegistry<VornClass> entityRegistry;
};

}  // namespace silrdm
