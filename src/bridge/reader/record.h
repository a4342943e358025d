// Records by field: how loaders read a section.
//
// A loader declares the fields it uses as an enumeration, each with its number in the record, counted from 1,
// the last of them once more as `last`, and as `width` the number of fields of a whole record. The fields in
// between are passed over.
//
//   enum class UserField { identifier = 2, name = 3, description = 6, last = description, width = 6 };
//   forEachRecord<UserField>([](const Record<UserField>& record) { ... record.text(UserField::name) ... });
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "bridge/import/import_state.h"
#include "bridge/reader/field_reader.h"
#include "bridge/reader/record_shape.h"
#include "bridge/reporting/reports.h"
#include "host/base/text.h"

namespace silrdm {

template <class Field>
class Record {
 public:
  // Cuts up the record in `buffer`, which must keep it as long as this object is used.
  explicit Record(char* buffer) {
    for (const char*& field : fields_) {
      field = nextField(buffer);
    }
  }

  // The field's value; empty when the record has no such field.
  const char* text(Field field) const { return fields_[static_cast<std::size_t>(field) - 1]; }
  bool isEmpty(Field field) const { return *text(field) == '\0'; }
  // Whether the value is exactly `word`.
  bool is(Field field, const char* word) const { return std::strcmp(text(field), word) == 0; }
  // The decimal integer at the value's start; 0 when there is none. See parseInteger.
  std::int32_t integer(Field field) const { return parseInteger(number(field)).value_or(0); }
  // The value where it is to be a number.
  const char* number(Field field) const {
    if (isListening) {
      tellOfNumber(subject(), text(field));
    }
    return text(field);
  }

  // The record as an irregularity's subject.
  Subject subject() const {
    const char* identifier = fields_[1];
    if constexpr (requires { Field::name; }) {
      return {identifier, text(Field::name)};
    } else {
      return {identifier, ""};
    }
  }

 private:
  std::array<const char*, static_cast<std::size_t>(Field::last)> fields_;
};

// Hands the record in the buffer to `handle` unless there is nothing in it: it stands for no item. One whose
// first byte is zero reads as empty too.
template <class Field, class Handle>
void handleRecord(Handle& handle) {
  if (recordBuffer[0] == '\0') {
    return;
  }
  if (!isListening) {
    handle(Record<Field>(recordBuffer));
    return;
  }
  const RecordShape shape = inspectRecord({recordBuffer, bufferedRecord.length}, bufferedRecord.isTooLong);
  const Record<Field> record(recordBuffer);
  reportShape(shape, {static_cast<int>(Field::last), static_cast<int>(Field::width)}, record.subject());
  handle(record);
}

// Reads one record into the buffer and hands it to `handle`. Returns what readRecord returns.
template <class Field, class Handle>
bool readAndHandleRecord(Handle handle) {
  const bool more = readRecord(recordBuffer, sizeof recordBuffer);
  handleRecord<Field>(handle);
  return more;
}

// Reads the section to its end and hands every record that is not empty to `handle`.
template <class Field, class Handle>
void forEachRecord(Handle handle) {
  while (readAndHandleRecord<Field>(handle)) {
  }
}

}  // namespace silrdm
