// Reporter: how the reader, loaders and passes report what they drop or change. Kinds are a table.
#pragma once

#include <string_view>

#include "bridge/elements/parsed_elements.h"
#include "host/base/literals.h"

namespace silrdm {

// Each has a row, in this order, in reporter.cpp.
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
  // Something of it is changed or left out.
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

// The record that an irregularity is about, for the length of a call.
struct Subject {
  // The one that the object was made from.
  Subject(const VornObject& object) : Subject(*elementOf(object), object.getName()) {}
  Subject(const SILRDMElement& element) : place(element.place), identifier(element.identifier.view()) {}
  Subject(const SILRDMElement& element, const VornString& recordName)
      : place(element.place), identifier(element.identifier.view()), name(recordName.view()) {}
  Subject(const SILRDMDataType& type) : Subject(type, type.nativeTypeName) {}
  Subject(const SILRDMTargetSystem& system) : Subject(system, system.systemName) {}
  // One that has no element, or whose object has lost it.
  Subject(const RecordPlace& recordPlace, std::string_view recordIdentifier, std::string_view recordName)
      : place(recordPlace), identifier(recordIdentifier), name(recordName) {}

  RecordPlace place;
  std::string_view identifier;
  std::string_view name;
};

class Reporter {
 public:
  // The name of a section, by its number: what its records are.
  using SectionName = const char* (*)(int section);

  // `log` must outlive the reporter.
  Reporter(VornLog& log, SectionName sectionName)
      : log_(log), sectionName_(sectionName), isListening_(log.listensToIrregularities()) {}

  // Whether anybody wants irregularities without a warning: ask before gathering what is only reported.
  bool isListening() const { return isListening_; }

  // Reports to a log that listens, and kinds with a warning to any log; then logs that warning. `value` is
  // what was found instead of what was wanted.
  void report(Irregularity kind, const Subject& subject, const VornString& value = {});
  void report(Irregularity kind, const Subject& subject, const VornString& value,
              const VornMessageArguments& warningArguments);

  // Reports a value that is read as a number and is not exactly one.
  void reportNumber(const Subject& subject, const VornString& value);

  // Reports, section by section, how many records were read, kept and dropped.
  void reportRecordCounts(const CountBySection& read, const CountBySection& kept);

  // How far the import has come: see VornLog::progress.
  void progress(const char* what, std::size_t done, std::size_t total) { log_.progress(what, done, total); }

 private:
  void notify(Irregularity kind, const Subject& subject, const VornString& value);

  VornLog& log_;
  SectionName sectionName_;
  bool isListening_;
  CountBySection droppedCounts_{};  // of records that were reported as dropped
};

// Adds an object under a name that `add` makes unique, and reports where that is another than it had.
template <class Add>
void addUniquelyNamed(Reporter& reporter, const VornObject& object, Add add) {
  const VornString name = reporter.isListening() ? object.getName() : VornString();
  add();
  if (reporter.isListening() && object.getName() != name) {
    reporter.report(Irregularity::nameTaken, object, name);
  }
}

}  // namespace silrdm
