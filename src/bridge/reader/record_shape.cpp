#include "bridge/reader/record_shape.h"

#include <string>

#include "bridge/reader/record_syntax.h"

namespace silrdm {

namespace {

VornString describeField(int field) {
  return VornString("field " + std::to_string(field));
}

}  // namespace

RecordShape inspectRecord(std::string_view record, bool isTooLong) {
  RecordShape shape{.fieldCount = 1, .isTooLong = isTooLong};
  bool inText = false;
  bool wasClosed = false;  // in this field
  const auto note = [&shape](int& field) {
    if (field == 0) {
      field = shape.fieldCount;
    }
  };
  for (const char byte : record) {
    if (static_cast<unsigned char>(byte) > control::kTab) {
      continue;
    }
    switch (byte) {
      case control::kTab:
        ++shape.fieldCount;
        wasClosed = false;
        break;
      case control::kStx:
        if (inText) {
          note(shape.openedAgain);
        }
        inText = true;
        break;
      case control::kEtx:
        if (wasClosed) {
          note(shape.closedAgain);
        }
        wasClosed = true;
        inText = false;
        break;
      case '\0':
        shape.hasNul = true;
        break;
      default:
        break;
    }
  }
  return shape;
}

void reportShape(Reporter& reporter, const RecordShape& shape, FieldNumbers fields, const Subject& subject) {
  const VornString count(std::to_string(shape.fieldCount));
  if (shape.hasNul) {
    reporter.report(Irregularity::nulInRecord, subject);
  } else if (shape.fieldCount < fields.last && !shape.isTooLong) {
    reporter.report(Irregularity::missingFields, subject, count);
  }
  if (shape.fieldCount > fields.width) {
    reporter.report(Irregularity::surplusFields, subject, count);
  }
  if (shape.closedAgain > 0) {
    reporter.report(Irregularity::textClosedAgain, subject, describeField(shape.closedAgain));
  }
  if (shape.openedAgain > 0) {
    reporter.report(Irregularity::textOpenedAgain, subject, describeField(shape.openedAgain));
  }
}

}  // namespace silrdm
