// Irregularities in the syntax of a record, independent of its fields' meaning.
#pragma once

#include <string_view>

#include "bridge/reporting/reporter.h"

namespace silrdm {

// Field numbers count from 1; 0 means none.
struct RecordShape {
  int fieldCount = 0;
  bool hasNul = false;     // fields after the first zero byte read as empty
  int closedAgain = 0;     // the first field in which a second ETX follows
  int openedAgain = 0;     // the first field with an STX inside a text
  bool isTooLong = false;  // the end is missing
};

// The last field that the import uses, and the number of fields the modelling tool writes.
struct FieldNumbers {
  int last;   // that is used
  int width;  // of a whole record
};

// Inspects a record before it is split into fields; `isTooLong` if its end was dropped.
RecordShape inspectRecord(std::string_view record, bool isTooLong);

// Reports all irregularities of `shape`.
void reportShape(Reporter& reporter, const RecordShape& shape, FieldNumbers fields, const Subject& subject);

}  // namespace silrdm
