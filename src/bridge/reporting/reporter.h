// Reporter: reports what the reader, the loaders and the passes drop or change.
#pragma once

#include <string_view>

#include "bridge/elements/parsed_elements.h"
#include "host/base/import_observer.h"
#include "host/base/literals.h"

namespace silrdm {

// Each kind has a row in the table in reporter.cpp, in the same order.
enum class Irregularity {
  // The record is dropped.
  otherSchema,
  otherTargetSystem,
  unknownTargetSystem,
  replacedTargetSystem,
  unmarkedSpecialization,
  specializationWithoutSupertype,
  unknownCombinationKind,
  columnWithoutEntity,
  keyWithoutTable,
  keyWithoutColumns,
  foreignKeyWithoutKey,
  foreignKeyWithoutRole,
  foreignKeyWithoutOppositeRole,
  foreignKeyWithoutTable,
  keyColumnWithoutColumn,
  keyColumnWithoutKey,
  keyColumnOfDroppedKey,
  subtypeLink,
  unconnectedRelationship,
  unconnectedRole,
  unusedType,
  mergedType,
  nulRecord,
  // A part of the record is changed or left out.
  roleWithoutOpposite,
  roleWithoutRelationship,
  roleWithoutTable,
  subtypeWithoutTable,
  keyColumnWithoutReference,
  domainWithoutDataType,
  unknownDataType,
  columnWithoutDomain,
  commonItemWithoutDomain,
  noNumber,
  inexactNumber,
  unknownAction,
  nameTaken,
  ownerMissing,
  nameTakenInSchema,
  inNoSchema,
  recordTooLong,
  furtherSchema,
  furtherModel,
  missingFields,
  surplusFields,
  nulInRecord,
  textClosedAgain,
  textOpenedAgain,
  textLeftOpen,
  lineFeed,
  furtherBytes,
  furtherExport,
  ownSupertype,
  manyToManyWithoutKey,
  relationshipWithoutPrimaryKey,
  relationshipWithoutTwoEnds,
  subtypeLinkWithoutKey,
  relationshipWithoutKey,
};

// The record that an irregularity is about. Valid during a call only.
struct Subject {
  // The record that the object was made from.
  Subject(const VornObject& object) : Subject(*elementOf(object), object.getName()) {}
  Subject(const SILRDMElement& element) : place(element.place), identifier(element.identifier.view()) {}
  Subject(const SILRDMElement& element, const VornString& recordName)
      : place(element.place), identifier(element.identifier.view()), name(recordName.view()) {}
  Subject(const SILRDMDataType& type) : Subject(type, type.nativeTypeName) {}
  Subject(const SILRDMTargetSystem& system) : Subject(system, system.systemName) {}
  // A record without an element.
  Subject(const RecordPlace& recordPlace, std::string_view recordIdentifier, std::string_view recordName)
      : place(recordPlace), identifier(recordIdentifier), name(recordName) {}

  RecordPlace place;
  std::string_view identifier;
  std::string_view name;
};

class Reporter {
 public:
  // Returns what the records of a section are: "columns".
  using SectionName = const char* (*)(int section);

  // `log` must outlive the reporter.
  Reporter(VornLog& log, SectionName sectionName)
      : log_(log),
        observer_(log.getObserver() != nullptr ? *log.getObserver() : nobody_),
        sectionName_(sectionName),
        reportsIrregularities_(log.isEnabled(VornSeverity::debug) || observer_.wantsIrregularities()) {}

  // Whether irregularities without a warning are wanted. Ask before collecting data only for reports.
  bool reportsIrregularities() const { return reportsIrregularities_; }

  // Reports an irregularity if they are wanted or the kind has a warning, then logs the warning. `value` is
  // what was found instead of what was expected.
  void report(Irregularity kind, const Subject& subject, const VornString& value = {});
  void report(Irregularity kind, const Subject& subject, const VornString& value,
              const VornMessageArguments& warningArguments);

  // Reports a value of a number field that is not exactly a number.
  void reportNumber(const Subject& subject, const VornString& value);

  // Reports for each section how many records were read, kept and dropped.
  void reportRecordCounts(const CountBySection& read, const CountBySection& kept);

  // What follows the import; ignores everything if the log has no observer.
  VornImportObserver& getObserver() { return observer_; }

 private:
  void notify(Irregularity kind, const Subject& subject, const VornString& value);

  VornLog& log_;
  VornImportObserver nobody_;
  VornImportObserver& observer_;
  SectionName sectionName_;
  bool reportsIrregularities_;
  CountBySection droppedCounts_{};  // of records that were reported as dropped
};

// Calls `add`, which may rename the object to make its name unique, and reports a new name.
template <class Add>
void addUniquelyNamed(Reporter& reporter, const VornObject& object, Add add) {
  const VornString name = reporter.reportsIrregularities() ? object.getName() : VornString();
  add();
  if (reporter.reportsIrregularities() && object.getName() != name) {
    reporter.report(Irregularity::nameTaken, object, name);
  }
}

}  // namespace silrdm
