// What is unusual about the bytes of a record, whatever its fields mean. For logs that listen.
#pragma once

#include <string_view>

#include "bridge/reporting/reporter.h"

namespace silrdm {

// Fields count from 1; 0 is for none.
struct RecordShape {
  int fieldCount = 0;
  bool hasNul = false;     // fields after the first zero byte read as empty
  int closedAgain = 0;     // the first field in which a second ETX follows
  int openedAgain = 0;     // the first field with an STX inside a text
  bool isTooLong = false;  // the end is missing
};

// The fields that the import uses of a section, and those that the tool writes.
struct FieldNumbers {
  int last;   // that is used
  int width;  // of a whole record
};

// Looks at a record before it is cut up; `isTooLong` when its end was dropped.
RecordShape inspectRecord(std::string_view record, bool isTooLong);

// Reports what is irregular about it.
void reportShape(Reporter& reporter, const RecordShape& shape, FieldNumbers fields, const Subject& subject);

}  // namespace silrdm
