#include "bridge/reporting/reporter.h"

#include <algorithm>
#include <charconv>

#include "bridge/messages/messages.h"
#include "host/base/irregularity.h"
#include "host/base/pemo.h"

namespace silrdm {

namespace {

struct Kind {
  Irregularity kind;
  bool drops;
  const VornMessageLiteral* warning;  // logged with it, or null
  const char* word;
  const char* wanted;
  const char* done;
};

using enum Irregularity;
using M = KVB_SRRDM;

// clang-format off
constexpr Kind kKinds[] = {
    {otherSchema,                    true,  nullptr,                                      "other-schema", "the model's schema", "dropped"},
    {otherTargetSystem,              true,  nullptr,                                      "other-target-system", "the model's target system", "dropped"},
    {unknownTargetSystem,            true,  &M::SILRDM_I_UNKNOWN_TARGET_SYSTEM,           "unknown-target-system", "a known target system and version", "dropped"},
    {replacedTargetSystem,           true,  nullptr,                                      "replaced-target-system", "one record with the identifier of the model's target system", "replaced by a later record"},
    {unmarkedSpecialization,         true,  nullptr,                                      "unmarked-specialization", "the mark Y", "dropped"},
    {specializationWithoutSupertype, true,  &M::SILRDM_I_CANNOT_CONNECT_GENERALIZATION,   "specialization-without-supertype", "supertype table", "dropped"},
    {unknownCombinationKind,         true,  nullptr,                                      "unknown-combination-kind", "IDC, OTC or FKEY", "dropped"},
    {columnWithoutEntity,            true,  &M::SILRDM_I_CANNOT_CONNECT_ATTRIBUTE,        "column-without-entity", "table or view", "dropped"},
    {keyWithoutTable,                true,  &M::SILRDM_I_CANNOT_CONNECT_KEY,              "key-without-table", "table", "dropped"},
    {keyWithoutColumns,              true,  nullptr,                                      "key-without-columns", "a column", "dropped"},
    {foreignKeyWithoutKey,           true,  nullptr,                                      "foreign-key-without-key", "referenced candidate key", "dropped"},
    {foreignKeyWithoutRole,          true,  nullptr,                                      "foreign-key-without-role", "role", "dropped"},
    {foreignKeyWithoutOppositeRole,  true,  nullptr,                                      "foreign-key-without-opposite-role", "opposite role of its role", "dropped"},
    {foreignKeyWithoutTable,         true,  &M::SILRDM_I_CANNOT_CONNECT_KEY,              "foreign-key-without-table", "opposite role with a table, and a specialization in a subtype link", "dropped"},
    {keyColumnWithoutColumn,         true,  nullptr,                                      "key-column-without-column", "column of a table", "dropped"},
    {keyColumnWithoutKey,            true,  nullptr,                                      "key-column-without-key", "combination", "dropped"},
    {keyColumnOfDroppedKey,          true,  nullptr,                                      "key-column-of-dropped-key", "combination in the model", "dropped"},
    {subtypeLink,                    true,  nullptr,                                      "subtype-link", "an ordinary relationship", "stands for a link from supertype to subtype"},
    {unconnectedRelationship,        true,  nullptr,                                      "unconnected-relationship", "a pair of roles", "dropped"},
    {unconnectedRole,                true,  nullptr,                                      "unconnected-role", "connected relationship", "dropped"},
    {unusedType,                     true,  nullptr,                                      "unused-type", "a column or type that uses it", "dropped"},
    {mergedType,                     true,  nullptr,                                      "merged-type", "a type of its own", "merged with the equal type"},
    {nulRecord,                      true,  nullptr,                                      "nul-record", "a record that does not begin with a zero byte", "dropped"},
    {roleWithoutOpposite,            false, &M::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP,     "role-without-opposite", "opposite role", "left unpaired"},
    {roleWithoutRelationship,        false, &M::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP,     "role-without-relationship", "relationship", "left unconnected, with its opposite"},
    {roleWithoutTable,               false, &M::SILRDM_I_CANNOT_CONNECT_RELATIONSHIP,     "role-without-table", "table", "left unconnected, with its opposite"},
    {subtypeWithoutTable,            false, &M::SILRDM_I_CANNOT_CONNECT_GENERALIZATION,   "subtype-without-table", "subtype table", "no subtype made"},
    {keyColumnWithoutReference,      false, nullptr,                                      "key-column-without-reference", "referenced combination column", "names left unmapped"},
    {domainWithoutDataType,          false, nullptr,                                      "domain-without-data-type", "data type", "given an undefined type"},
    {unknownDataType,                false, &M::SILRDM_I_UNKNOWN_DATATYPE,                "unknown-data-type", "a data type of the target system", "given an undefined type"},
    {columnWithoutDomain,            false, nullptr,                                      "column-without-domain", "domain", "given an undefined type"},
    {commonItemWithoutDomain,        false, nullptr,                                      "common-item-without-domain", "domain", "given an undefined type"},
    {noNumber,                       false, nullptr,                                      "no-number", "a number", "read as if there were nothing"},
    {inexactNumber,                  false, nullptr,                                      "inexact-number", "a number of 32 bits and nothing else", "read up to the first other character, and as the nearest such number"},
    {unknownAction,                  false, nullptr,                                      "unknown-action", "a referential action", "left unspecified"},
    {nameTaken,                      false, nullptr,                                      "name-taken", "a name of its own", "renamed"},
    {ownerMissing,                   false, nullptr,                                      "owner-missing", "user", "placed in the default schema"},
    {nameTakenInSchema,              false, nullptr,                                      "name-taken-in-schema", "a name of its own in the owner's schema", "placed in the default schema"},
    {inNoSchema,                     false, nullptr,                                      "in-no-schema", "a name of its own in the default schema", "placed in no schema"},
    {recordTooLong,                  false, &M::SILRDM_I_LINE_TOO_LONG,                   "record-too-long", "at most 16383 bytes", "cut"},
    {furtherSchema,                  false, &PEMO::FURTHER_SCHEMA,                        "further-schema", "one schema record", "every later section read one place late"},
    {furtherModel,                   false, nullptr,                                      "further-model", "one model record", "the import ends"},
    {missingFields,                  false, nullptr,                                      "missing-fields", "each field that the import uses", "the others read as empty"},
    {surplusFields,                  false, nullptr,                                      "surplus-fields", "at most the fields that the section has", "the others ignored"},
    {nulInRecord,                    false, nullptr,                                      "nul-in-record", "no zero byte", "cut there"},
    {textClosedAgain,                false, nullptr,                                      "text-closed-again", "one text in a field", "one value kept"},
    {textOpenedAgain,                false, nullptr,                                      "text-opened-again", "the end of a text before the next one begins", "line ends up to there read as part of the text"},
    {textLeftOpen,                   false, nullptr,                                      "text-left-open", "the end of the text before its section or the file ends", "ended there"},
    {lineFeed,                       false, nullptr,                                      "line-feed", "records that end in CR, not CR LF", "each LF read as the first byte of the next record"},
    {furtherBytes,                   false, nullptr,                                      "further-bytes", "the end of the file after the last section", "ignored"},
    {furtherExport,                  false, &PEMO::FURTHER_EXPORT,                        "further-export", "the end of the file after the last section", "ignored: it looks like another export"},
    {ownSupertype,                   false, nullptr,                                      "own-supertype", "a subtype other than the supertype", "made its own subtype"},
    {manyToManyWithoutKey,           false, nullptr,                                      "many-to-many-without-key", "a table at one end that the other end refers to", "no foreign key generated"},
    {relationshipWithoutPrimaryKey,  false, nullptr,                                      "relationship-without-primary-key", "a primary key of the table referred to", "no foreign key generated"},
    {relationshipWithoutTwoEnds,     false, nullptr,                                      "relationship-without-two-ends", "two ends", "no foreign key generated"},
    {subtypeLinkWithoutKey,          false, nullptr,                                      "subtype-link-without-key", "an ordinary relationship", "no foreign key generated"},
    {relationshipWithoutKey,         false, nullptr,                                      "relationship-without-key", "a foreign key that can be made", "no foreign key generated"},
};
// clang-format on

static_assert(std::ranges::is_sorted(kKinds, {}, &Kind::kind) &&
              std::size(kKinds) == static_cast<std::size_t>(relationshipWithoutKey) + 1);

const Kind& rowOf(Irregularity kind) {
  return kKinds[static_cast<std::size_t>(kind)];
}

}  // namespace

void Reporter::notify(Irregularity kind, const Subject& subject, const VornString& value) {
  const Kind& row = rowOf(kind);
  // Warnings name their record even if nobody wants other irregularities.
  if (!reportsIrregularities_ && row.warning == nullptr) {
    return;
  }
  VornIrregularity irregularity;
  irregularity.kind = row.word;
  if (row.warning != nullptr) {
    irregularity.warning = row.warning->getCode().view();
  }
  irregularity.section = subject.place.section;
  irregularity.sectionName = sectionName_(subject.place.section);
  irregularity.record = subject.place.record;
  irregularity.offset = subject.place.offset;
  irregularity.identifier = subject.identifier;
  irregularity.name = subject.name;
  irregularity.wanted = row.wanted;
  irregularity.value = value.view();
  irregularity.done = row.done;
  irregularity.dropped = row.drops;
  observer_.irregular(irregularity);
  if (log_.isEnabled(VornSeverity::debug)) {
    log_.debug(describe(VornDecodedIrregularity(irregularity, log_).get()));
  }
  if (row.drops) {
    ++droppedCounts_[static_cast<std::size_t>(subject.place.section)];
  }
}

void Reporter::report(Irregularity kind, const Subject& subject, const VornString& value) {
  notify(kind, subject, value);
  if (const auto* warning = rowOf(kind).warning) {
    warning->log(log_);
  }
}

void Reporter::report(Irregularity kind, const Subject& subject, const VornString& value,
                      const VornMessageArguments& warningArguments) {
  notify(kind, subject, value);
  rowOf(kind).warning->log(log_, warningArguments);
}

void Reporter::reportNumber(const Subject& subject, const VornString& value) {
  if (!reportsIrregularities_) {
    return;
  }
  const VornString text = value.trim();
  if (text.empty()) {
    return;
  }
  if (!parseInteger(text.view())) {
    report(noNumber, subject, value);
    return;
  }
  const char* const digits = text.c_str() + static_cast<int>(text.view().front() == '+');
  const char* const end = text.c_str() + text.length();
  std::int32_t number = 0;
  const auto read = std::from_chars(digits, end, number);
  if (read.ec != std::errc{} || read.ptr != end) {
    report(inexactNumber, subject, value);
  }
}

void Reporter::reportRecordCounts(const CountBySection& read, const CountBySection& kept) {
  for (std::size_t section = 1; section <= kSectionCount; ++section) {
    const char* const name = sectionName_(static_cast<int>(section));
    if (*name == '\0') {
      continue;
    }
    const VornRecordCount count{static_cast<int>(section), name, read[section], kept[section],
                                droppedCounts_[section]};
    observer_.recordsCounted(count);
    if (log_.isEnabled(VornSeverity::debug)) {
      log_.debug(describe(count));
    }
  }
}

}  // namespace silrdm
