#include <algorithm>

#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/reader/record.h"
#include "host/metamodel/relationship.h"
#include "host/services/multiplicity.h"

namespace silrdm {

namespace {

enum class Field {
  schemaId = 1,
  identifier = 2,
  keptAsRead = 3,
  name = 4,
  relationshipId = 5,
  entityId = 8,
  oppositeRoleId = 9,
  specializationId = 10,  // of a supertype/subtype link, empty otherwise
  oneSide = 15,           // exactly "N": this end is not the "one" side, whatever its multiplicity
  physicalName = 16,
  description = 18,
  referentialAction1 = 21,
  referentialAction2 = 23,
  maximum = 25,
  minimum = 27,
  referentialAction3 = 33,
  last = referentialAction3,
  width = 36,
};

struct ActionWord {
  std::string_view word;
  VornReferentialActionType::Value action;
};

// clang-format off
constexpr ActionWord kActionWords[] = {
    {"CASCADE",     VornReferentialActionType::cascade},
    {"RESTRICT",    VornReferentialActionType::restrict},
    {"SET NULL",    VornReferentialActionType::setNull},
    {"SET DEFAULT", VornReferentialActionType::setDefault},
    {"NONE",        VornReferentialActionType::none},
    {"PROPAGATE",   VornReferentialActionType::cascade},
    {"ATTACH",      VornReferentialActionType::restrict},
    {"NOT ALLOWED", VornReferentialActionType::restrict},
};
// clang-format on

struct CardinalityWord {
  std::string_view word;
  std::int32_t bound;
};

constexpr CardinalityWord kMaximumWords[] = {{"N", MANY}, {"n", MANY}, {"A", 1}};

// The row of a table of words, or null.
template <class Row, std::size_t size>
const Row* findWord(const Row (&rows)[size], const VornString& word) {
  const auto* row =
      std::find_if(rows, rows + size, [&](const Row& candidate) { return word.view() == candidate.word; });
  return row == rows + size ? nullptr : row;
}

VornReferentialActionType::Value referentialActionCode(const VornAssociationRole& role,
                                                       const VornString& word) {
  const ActionWord* row = findWord(kActionWords, word);
  if (row == nullptr && !word.empty()) {
    tell(Irregularity::unknownAction, role, word);
  }
  const auto action = row == nullptr ? VornReferentialActionType::unspecified : row->action;
  VornReferentialActionType::isValid(action);
  return action;
}

// A minimum without a number is 0, a maximum without one MANY.
void parseMultiplicity(VornAssociationRole& role, const VornString& minimum, const VornString& maximum) {
  const CardinalityWord* row = findWord(kMaximumWords, maximum);
  if (isListening && row == nullptr) {
    tellOfNumber(role, maximum);
  }
  role.multiplicity =
      buildMultiplicity(parseInteger(minimum.view()).value_or(0),
                        row == nullptr ? parseInteger(maximum.view()).value_or(MANY) : row->bound);
}

void loadRole(const Record<Field>& record) {
  auto role = makeParsed<VornAssociationRole, SILRDMAssociationRole>(record.text(Field::identifier));
  auto& element = *elementOf<SILRDMAssociationRole>(*role);
  element.schemaId = record.text(Field::schemaId);
  element.field3 = record.text(Field::keptAsRead);
  element.relationshipId = record.text(Field::relationshipId);
  element.entityId = record.text(Field::entityId);
  element.oppositeRoleId = record.text(Field::oppositeRoleId);
  element.specializationId = record.text(Field::specializationId);
  role->setName(record.text(Field::name));
  role->setPhysicalName(record.text(Field::physicalName));
  role->description = record.text(Field::description);
  role->referentialAction1 = referentialActionCode(*role, record.text(Field::referentialAction1));
  role->referentialAction2 = referentialActionCode(*role, record.text(Field::referentialAction2));
  role->referentialAction3 = referentialActionCode(*role, record.text(Field::referentialAction3));
  parseMultiplicity(*role, record.number(Field::minimum), record.text(Field::maximum));
  role->oneSide =
      !record.is(Field::oneSide, "N") && (role->multiplicity == "1" || role->multiplicity == "0..1");
  roleRegistry.add(role.get());
  role.release();
}

}  // namespace

void loadRoles() {
  forEachRecord<Field>(loadRole);
}

}  // namespace silrdm
