// RelationalModel: a store model as writers of tables need it. It owns nothing; the model must not change
// while it is in use.
#pragma once

#include <span>
#include <vector>

#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"

struct RelationalModel {
  // The elements of all design packages, each kind in the model's order.
  std::vector<const VornClass*> tables;
  std::vector<const VornSQLViewEntity*> views;
  std::vector<const VornAssociation*> associations;
  std::vector<const VornGeneralization*> generalizations;
  // The schemas with a name and an element, in the model's order.
  std::vector<const VornDataPackage*> schemas;

  explicit RelationalModel(const VornStoreModel& model);
};

// The physical name, or when asked for the logical one; where that is empty the other.
const VornString& getPreferredName(const VornModelObject& object, bool logical);

// The schema that an element belongs to: of several that import it the first. Null without one.
const VornDataPackage* getSchema(const VornNamespaceElement& element);

// A table's columns by their positions; equal positions keep the order in which they were added.
std::vector<const VornAttribute*> getColumns(const VornClass& table);

// The members of an index by their positions.
std::vector<const VornIndexMember*> getMembers(const VornIndex& index);

// The columns of an index by the positions of its members; null for a member that has none.
std::vector<const VornAttribute*> getIndexColumns(const VornIndex& index);

// A key's columns in the order of its index, where that has the same columns; a key itself knows no order.
std::vector<const VornAttribute*> getKeyColumns(const VornKey& key);

// Whether all columns are the table's own.
bool areColumnsOf(const VornClass& table, std::span<const VornAttribute* const> columns);

// Whether the index says no more than the candidate key it belongs to: its columns, all ascending.
bool isOfCandidateKey(const VornIndex& index);

// A column of a foreign key and the one it refers to.
struct ColumnPair {
  const VornAttribute* own;
  const VornAttribute* referenced;
};

// The column pairs of a foreign key, in the order of its columns: by its name maps, then by equal names, then
// by the order of those left over. None when the key has no columns, not as many as the referenced one, or no
// referenced one.
std::vector<ColumnPair> getColumnPairs(const VornForeignKey& key);

// The columns of all pairs as two lists.
struct ColumnLists {
  std::vector<const VornAttribute*> own;
  std::vector<const VornAttribute*> referenced;
};
ColumnLists splitPairs(const std::vector<ColumnPair>& pairs);

// What happens to the rows of a foreign key when the row they refer to goes, or its key changes.
struct ReferentialActions {
  VornReferentialActionType::Value onDelete = VornReferentialActionType::unspecified;
  VornReferentialActionType::Value onUpdate = VornReferentialActionType::unspecified;
};

// Each action comes from the role at the parent's end of the association, or from the child's end if the
// parent's has none: the modelling tool allows both. A role's first action is for deletion, the second for
// update. The third, for insertion, exists in no database.
ReferentialActions getActions(const VornForeignKey& key);
