// The assembly passes: what turns the loaded records into a model, in the order in which they run.
#pragma once

#include <array>

namespace silrdm {

// Drops what does not belong to the model's schema, and the domains and data types of other target systems.
void filterBySchema();
// Puts every column into its table or view; drops, with a warning, a column that has neither.
void placeAttributes();
// Numbers the columns of every table.
void orderAttributes();
// Gives every generalization its supertype and puts it into the design package and the diagram; reports one
// without a supertype, which stays out.
void placeSpecializations();
// Pairs roles and makes of each pair an association in the design package and the diagram or, where the roles
// name a specialization, a subtype of it. Reports what cannot be connected, which stays out.
void connectRelationships();
// Puts every key with its index on its table; ties foreign keys to the keys they reference and to the roles
// they follow.
void connectKeys();
// Gives keys their columns and indexes their members, and maps differently named columns of foreign keys.
void connectKeyMembers();
// Places tables, synonyms and views into the database schemas of their owners.
void placeInSchemas();
// Numbers the members of every index.
void orderIndexMembers();
// Drops keys without columns and their indexes; notes what kinds of keys are left.
void dropEmptyKeys();
// Drops the roles whose relationship became a subtype.
void dropGeneralizationRoles();

struct Pass {
  int position;  // in the sequence of all passes; numbers left out are of passes that are still to come
  const char* name;
  const char* purpose;
  void (*run)();
};

extern const std::array<Pass, 11> kPasses;

}  // namespace silrdm
