// The assembly passes: what turns the loaded records into a model, in the order in which they run.
#pragma once

#include <array>

namespace silrdm {

// Drops what does not belong to the model's schema, and the domains and data types of other target systems.
void filterBySchema();
// Puts every column into its table or view; drops, with a warning, a column that has neither.
void placeAttributes();
// Gives every domain the host type of its data type, and derives it from a base type.
void typeDomains();
// Gives every common item the host type of its domain, and derives it from a base type.
void typeCommonItems();
// Gives every column of a table its type: its domain, or one of its own where it has sizes of its own.
void typeAttributes();
// Numbers the columns of every table.
void orderAttributes();
// Adds the types that are in use to the model, makes one of those that are the same, drops the others.
void collectModelTypes();
// Places tables, synonyms and views into the database schemas of their owners.
void placeInSchemas();

struct Pass {
  int position;  // in the sequence of all passes; numbers left out are of passes that are still to come
  const char* name;
  const char* purpose;
  void (*run)();
};

extern const std::array<Pass, 8> kPasses;

}  // namespace silrdm
