// Foreign keys and what they do when the row that they refer to goes or changes.
#include <utility>

#include "host/writers/sql/sql_script.h"

namespace {

using Action = VornReferentialActionType;

std::string_view getWords(Action::Value action) {
  switch (action) {
    case Action::cascade:
      return "CASCADE";
    case Action::restrict:
      return "RESTRICT";
    case Action::setNull:
      return "SET NULL";
    case Action::setDefault:
      return "SET DEFAULT";
    default:
      return {};  // what happens anyway
  }
}

// " ON DELETE CASCADE ON UPDATE SET NULL": of what the key does, what the dialect knows, or else what it does
// not. To refuse is what a database does without a word.
std::string makeActions(SqlScript& script, const VornForeignKey& key, bool areKnown) {
  const ReferentialActions actions = getActions(key);
  std::string clauses;
  const auto add = [&](std::string_view event, Action::Value action, std::uint8_t known) {
    const bool isKnown = (known & (1U << action)) != 0;
    const bool isLost = !isKnown && action != Action::restrict;
    if (!getWords(action).empty() && (areKnown ? isKnown : isLost)) {
      clauses.append(event).append(getWords(action));
      script.lostActions += static_cast<int>(isLost);
    }
  };
  add(" ON DELETE ", actions.onDelete, script.dialect.onDelete);
  add(" ON UPDATE ", actions.onUpdate, script.dialect.onUpdate);
  return clauses;
}

}  // namespace

std::string makeForeignKeyClause(SqlScript& script, const VornForeignKey& key) {
  const auto [own, referenced] = splitPairs(getColumnPairs(key));
  const auto& parent = static_cast<const VornClass&>(*key.candidateKey->getOwner());
  std::string clause = "FOREIGN KEY (";
  clause.append(script.list(own)).append(") REFERENCES ").append(script.qualified(parent));
  clause.append(" (").append(script.list(referenced)).append(")").append(makeActions(script, key, true));
  return clause;
}

void writeForeignKeys(SqlScript& script) {
  if (!script.dialect.addsConstraintsLater) {
    return;
  }
  bool isFirst = true;
  for (const VornClass* table : script.elements.tables) {
    const bool isThere = findObstacle(script, *table).empty();
    for (const VornKey* key : table->keyCollection) {
      if (!isThere || key->getElementType() != VornElementType::foreignKey) {
        continue;
      }
      script.out.add(std::exchange(isFirst, false) ? "\n" : "");
      const auto& foreign = static_cast<const VornForeignKey&>(*key);
      if (const std::string_view why = findObstacle(script, foreign); !why.empty()) {
        script.leaveOut("", "foreign key " + script.identifier(foreign) + " of " + script.qualified(*table),
                        why);
        continue;
      }
      if (const std::string lost = makeActions(script, foreign, false); !lost.empty()) {
        script.out.add("-- Left out:", lost, ", which ", script.dialect.system, " does not know.\n");
      }
      script.out.add("ALTER TABLE ", script.qualified(*table), " ADD ", script.constraint(foreign),
                     makeForeignKeyClause(script, foreign), ";\n");
    }
  }
}
