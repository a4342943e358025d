// VornOutputFormat: in which form a model is to be saved, and the choices that a form leaves open. A format
// takes the choices that mean something to it.
#pragma once

#include "host/std/text.h"

struct VornOutputFormat {
  VornString name;            // "json"; empty: the file's extension tells it
  VornString dialect;         // of SQL, "postgresql"; empty: that of the data store that the model describes
  bool logicalNames = false;  // tables and columns go by their names, not by their physical names
  bool quoteAll = false;      // identifiers are quoted, also those that could stand without
  bool everyView = false;     // views are written as they stand, also those that the dialect may not take
};
