// VornOutputFormat: the format to save a model in, and the choices that formats leave open. A format ignores
// choices that do not concern it.
#pragma once

#include "host/base/text.h"

struct VornOutputFormat {
  VornString name = {};       // "json"; empty: the file's extension tells it
  VornString dialect = {};    // of SQL, "postgresql"; empty: that of the data store that the model describes
  bool logicalNames = false;  // tables and columns go by their names, not by their physical names
  bool quoteAll = false;      // quote all identifiers, even those that do not need it
  VornString typeRules =
      {};  // that go before the built-in ones, in the form of type_rules.h, without mistakes
  bool keepsDecimals = false;  // decimals without a scale of a database without integers stay decimals
  bool drops = false;          // SQL: begins with the removal of what it makes
  bool isTransaction = false;  // SQL: all or nothing, where the dialect can
  bool everyView = false;  // write all views that can do no harm, even those that the dialect may not accept
};
