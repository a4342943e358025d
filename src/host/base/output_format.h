// VornOutputFormat: in which form a model is to be saved, and the choices that a form leaves open. A format
// takes the choices that mean something to it.
#pragma once

#include "host/base/text.h"

struct VornOutputFormat {
  VornString name;            // "json"; empty: the file's extension tells it
  VornString dialect;         // of SQL, "postgresql"; empty: that of the data store that the model describes
  bool logicalNames = false;  // tables and columns go by their names, not by their physical names
  bool quoteAll = false;      // identifiers are quoted, also those that could stand without
  VornString typeRules;  // that go before the built-in ones, in the form of type_rules.h, without mistakes
  bool keepsDecimals = false;  // decimals without a scale of a database without integers stay decimals
  bool drops = false;          // SQL: begins with the removal of what it makes
  bool isTransaction = false;  // SQL: all or nothing, where the dialect can
  bool everyView = false;      // views are written as they stand, also those that the dialect may not take
};
