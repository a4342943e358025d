#include <algorithm>

#include "bridge/loaders/load_records.h"
#include "host/metamodel/relationship.h"
#include "host/services/multiplicity.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(
    36,  //
    field(1, "schemaId", &SILRDMAssociationRole::schemaId), field(2, "identifier"),
    field(3, "keptAsRead", &SILRDMAssociationRole::field3), field(4, "name", &VornModelObject::setName),
    field(5, "relationshipId", &SILRDMAssociationRole::relationshipId),
    field(8, "entityId", &SILRDMAssociationRole::entityId),
    field(9, "oppositeRoleId", &SILRDMAssociationRole::oppositeRoleId),
    // Of a supertype/subtype link, empty otherwise.
    field(10, "specializationId", &SILRDMAssociationRole::specializationId),
    // Exactly "N": this end is not the "one" side, whatever its multiplicity.
    field(15, "oneSide"), field(16, "physicalName", &VornModelObject::physicalName),
    field(18, "description", &VornModelObject::description), field(21, "referentialAction1"),
    field(23, "referentialAction2"), field(25, "maximum"), field(27, "minimum"),
    field(33, "referentialAction3"));

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

// Returns the row for `word`, or null.
template <class Row, std::size_t size>
const Row* findWord(const Row (&rows)[size], const VornString& word) {
  const auto* row =
      std::find_if(rows, rows + size, [&](const Row& candidate) { return word.view() == candidate.word; });
  return row == rows + size ? nullptr : row;
}

VornReferentialActionType::Value referentialActionCode(Import& import, const VornAssociationRole& role,
                                                       const VornString& word) {
  const ActionWord* row = findWord(kActionWords, word);
  if (row == nullptr && !word.empty()) {
    import.report(Irregularity::unknownAction, role, word);
  }
  const auto action = row == nullptr ? VornReferentialActionType::unspecified : row->action;
  VornReferentialActionType::isValid(action);
  return action;
}

// A missing minimum is 0, a missing maximum MANY.
void parseMultiplicity(Import& import, VornAssociationRole& role, const VornString& minimum,
                       const VornString& maximum) {
  const CardinalityWord* row = findWord(kMaximumWords, maximum);
  if (row == nullptr) {
    import.reporter.reportNumber(role, maximum);
  }
  role.multiplicity =
      buildMultiplicity(parseInteger(minimum.view()).value_or(0),
                        row == nullptr ? parseInteger(maximum.view()).value_or(MANY) : row->bound);
}

void finishRole(Import& import, VornAssociationRole& role, const Record<kLayout>& record) {
  role.referentialAction1 = referentialActionCode(import, role, record.text("referentialAction1"));
  role.referentialAction2 = referentialActionCode(import, role, record.text("referentialAction2"));
  role.referentialAction3 = referentialActionCode(import, role, record.text("referentialAction3"));
  parseMultiplicity(import, role, record.number("minimum"), record.text("maximum"));
  role.oneSide = !record.is("oneSide", "N") && (role.multiplicity == "1" || role.multiplicity == "0..1");
}

}  // namespace

const RecordFields kRoleFields = kLayout.getFields();

void loadRoles(Import& import) {
  loadEach<kLayout, SILRDMAssociationRole>(
      import.reader, import.roleRegistry,
      [&import](VornAssociationRole& role, const auto& record) { finishRole(import, role, record); });
}

}  // namespace silrdm
