// Foreign keys and what they do when the row that they refer to goes or changes.
#include <algorithm>
#include <set>
#include <utility>

#include "host/metamodel/casting.h"
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

// An action for one event, "ON DELETE" or "ON UPDATE".
struct EventAction {
  std::string_view event;
  Action::Value action;
  std::uint8_t known;  // the actions that the dialect knows for it
};

// What every database does without a word: it refuses.
bool refuses(Action::Value action) {
  return getWords(action).empty() || action == Action::restrict;
}

bool clears(Action::Value action) {
  return action == Action::setNull || action == Action::setDefault;
}

// Why the action would be refused, or could never happen; empty where it can.
std::string findActionObstacle(SqlScript& script, const VornForeignKey& key, const EventAction& wanted) {
  if ((wanted.known & (1U << wanted.action)) == 0) {
    return std::string(script.dialect.system) + " does not know it";
  }
  const auto required = std::ranges::find_if(
      key.attributeCollection, [&](const VornAttribute* column) { return script.isRequired(*column); });
  if (clears(wanted.action) && required != key.attributeCollection.end()) {
    return script.identifier(**required) + " must have a value";
  }
  return {};
}

// " ON DELETE CASCADE ON UPDATE SET NULL", each behind `separator`.
std::string makeActions(SqlScript& script, const VornForeignKey& key, std::string_view separator,
                        std::vector<std::string>& remarks) {
  const ReferentialActions actions = getActions(key);
  const auto& child = cast<VornClass>(*key.getOwner());
  const auto& parent = cast<VornClass>(*key.candidateKey->getOwner());
  std::string clauses;
  bool isInGraph = false;
  for (const EventAction& wanted : {EventAction{"ON DELETE", actions.onDelete, script.dialect.onDelete},
                                    EventAction{"ON UPDATE", actions.onUpdate, script.dialect.onUpdate}}) {
    if (getWords(wanted.action).empty()) {
      continue;
    }
    std::string why = findActionObstacle(script, key, wanted);
    if (why.empty() && !refuses(wanted.action) && script.dialect.cascadePaths == CascadePaths::single) {
      isInGraph = isInGraph || script.cascades.add(parent, child);
      why = isInGraph ? "" : "the rows could be reached by a second path of actions";
    }
    const bool isSelf = script.dialect.id == DialectId::db2 && &parent == &child;
    if (why.empty() && !(isSelf && refuses(wanted.action))) {
      clauses.append(separator).append(wanted.event).append(" ").append(getWords(wanted.action));
    } else if (!refuses(wanted.action)) {
      ++script.lostActions;
      remarks.push_back(std::string(wanted.event).append(" ").append(getWords(wanted.action)) + ": " + why);
    }
  }
  return clauses;
}

// The columns in the order in which those that they refer to are in their key.
std::vector<ColumnPair> getOrderedPairs(SqlScript& script, const VornForeignKey& key) {
  std::vector<ColumnPair> pairs = getColumnPairs(key);
  const std::vector<const VornAttribute*> order = getKeyColumns(getWrittenKey(script, *key.candidateKey));
  std::ranges::stable_sort(pairs, {},
                           [&](const ColumnPair& pair) { return std::ranges::find(order, pair.referenced); });
  return pairs;
}

class ForeignKeyWriter {
 public:
  ForeignKeyWriter(SqlScript& script, const VornClass& table) : script_(script), table_(table) {}

  void write(const VornForeignKey& key) {
    const std::string name = script_.identifier(key);
    std::string_view why = script_.whyNot(key);
    if (why.empty() && !script_.dialect.takesTwinForeignKeys && !isFirst(key)) {
      why = "another foreign key says the same";
    }
    if (!why.empty()) {
      script_.leaveOut("", "foreign key " + name + " of " + script_.qualified(table_), why);
      return;
    }
    const ForeignKeyClause clause = makeForeignKeyClause(script_, key, "  ");
    std::string start = "ADD " + script_.constraint(key);
    start.pop_back();  // the blank
    script_.out.add("ALTER TABLE ", script_.qualified(table_), ' ', start, "\n  ", clause.text, ";\n");
    for (const std::string& remark : clause.remarks) {
      script_.out.add("-- Left out: ", remark, ".\n");
    }
  }

 private:
  bool isFirst(const VornForeignKey& key) {
    std::vector<std::pair<const VornAttribute*, const VornAttribute*>> pairs;
    for (const ColumnPair& pair : getColumnPairs(key)) {
      pairs.emplace_back(pair.own, pair.referenced);
    }
    std::ranges::sort(pairs);
    return written_.insert(std::move(pairs)).second;
  }

  SqlScript& script_;
  const VornClass& table_;
  std::set<std::vector<std::pair<const VornAttribute*, const VornAttribute*>>> written_;
};

}  // namespace

ForeignKeyClause makeForeignKeyClause(SqlScript& script, const VornForeignKey& key, std::string_view indent) {
  const auto [own, referenced] = splitPairs(getOrderedPairs(script, key));
  const auto& parent = cast<VornClass>(*key.candidateKey->getOwner());
  ForeignKeyClause clause;
  const std::string line = "\n" + std::string(indent);
  clause.text.append("FOREIGN KEY (").append(script.list(own)).append(") REFERENCES ");
  clause.text.append(script.qualified(parent)).append(" (").append(script.list(referenced)).append(")");
  clause.text.append(makeActions(script, key, line, clause.remarks));
  return clause;
}

void writeForeignKeys(SqlScript& script) {
  if (!script.dialect.addsConstraintsLater) {
    return;
  }
  bool isFirst = true;
  for (const VornClass* table : script.elements.tables) {
    const bool isThere = script.whyNot(*table).empty();
    ForeignKeyWriter writer(script, *table);
    for (const VornKey* key : table->keyCollection) {
      if (!isThere || key->getElementType() != VornElementType::foreignKey) {
        continue;
      }
      if (std::exchange(isFirst, false)) {
        script.section("Foreign keys");
        script.out.add('\n');
      }
      writer.write(cast<VornForeignKey>(*key));
    }
  }
}
