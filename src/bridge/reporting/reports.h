// How loaders and passes tell the log of what they drop or change: one call a place. Kinds are a table.
#pragma once

#include <string_view>

#include "bridge/elements/parsed_elements.h"
#include "bridge/import/import_state.h"
#include "host/base/literals.h"

namespace silrdm {

// Each has a row, in this order, in irregularities.cpp.
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
  // One whose object has lost its element.
  Subject(const RecordPlace& recordPlace, std::string_view recordIdentifier, std::string_view recordName)
      : place(recordPlace), identifier(recordIdentifier), name(recordName) {}
  // The one that was read last.
  Subject(std::string_view recordIdentifier, std::string_view recordName)
      : place(readingPlace), identifier(recordIdentifier), name(recordName) {}

  RecordPlace place;
  std::string_view identifier;
  std::string_view name;
};

// Tells a log that listens, and of kinds with a warning any log; then logs that warning. `value`
// is what stood there in place of what was wanted.
void tell(Irregularity kind, const Subject& subject, const VornString& value = {});
void tell(Irregularity kind, const Subject& subject, const VornString& value,
          const VornMessageArguments& warningArguments);

// Tells of a value that is read as a number and is not exactly one. For logs that listen.
void tellOfNumber(const Subject& subject, const VornString& value);

// Adds an object under a name that `add` makes unique, and tells where that is another than it had.
template <class Add>
void addUniquelyNamed(const VornObject& object, Add add) {
  const VornString name = isListening ? object.getName() : VornString();
  add();
  if (isListening && object.getName() != name) {
    tell(Irregularity::nameTaken, object, name);
  }
}

// The records by section that objects of the model were made from. To be called while they still have their
// elements.
CountBySection countKeptRecords();
// Tells, section by section, how many records were read, kept and dropped.
void tellRecordCounts(const CountBySection& kept);

}  // namespace silrdm
