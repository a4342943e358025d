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
// Places tables, synonyms and views into the database schemas of their owners.
void placeInSchemas();

struct Pass {
  int position;  // in the sequence of all passes; numbers left out are of passes that are still to come
  const char* name;
  const char* purpose;
  void (*run)();
};

extern const std::array<Pass, 4> kPasses;

}  // namespace silrdm
