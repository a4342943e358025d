// Record: one record of a section, split into fields by the section's layout.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "bridge/reader/export_reader.h"
#include "bridge/reader/record_layout.h"
#include "bridge/reader/record_shape.h"
#include "host/base/text.h"

namespace silrdm {

template <const auto& kLayout>
class Record {
 public:
  // The name of a field. A name that the layout does not have does not compile.
  class Field {
   public:
    consteval Field(const char* name) : index_(indexOf(kLayout.numberOf(name))) {}

   private:
    friend class Record;
    static consteval std::size_t indexOf(int number) {
      return number > 0 ? static_cast<std::size_t>(number) - 1 : throw "no such field";
    }
    std::size_t index_;
  };

  // Splits the last record that `reader` read. The reader must not read on while this object is used.
  explicit Record(ExportReader& reader) : reader_(reader) {
    char* cursor = reader.getRecord();
    for (const char*& value : values_) {
      value = nextField(cursor);
    }
  }

  // Returns the field's value; empty if the record is shorter.
  const char* text(Field field) const { return values_[field.index_]; }
  bool isEmpty(Field field) const { return *text(field) == '\0'; }
  // Whether the value is exactly `word`.
  bool is(Field field, const char* word) const { return std::strcmp(text(field), word) == 0; }
  // Returns the value of a number field, and reports it if it is not a number.
  const char* number(Field field) const { return numberAt(field.index_); }

  // In every section the identifier is field 2.
  const char* getIdentifier() const { return values_[1]; }
  const RecordPlace& getPlace() const { return reader_.getPlace(); }
  Subject subject() const {
    constexpr auto kName = static_cast<std::size_t>(kLayout.numberOf("name"));
    if constexpr (kName > 0) {
      return {getPlace(), getIdentifier(), values_[kName - 1]};
    } else {
      return {getPlace(), getIdentifier(), ""};
    }
  }

  // Stores the values of all fields that have a target.
  template <class Object, class Element>
  void fill(Object& object, Element& element) const {
    std::apply([&](const auto&... field) { (put(field.number, field.target, object, element), ...); },
               kLayout.fields);
  }

 private:
  static constexpr std::size_t kCount = static_cast<std::size_t>(kLayout.last());

  const char* numberAt(std::size_t index) const {
    if (reader_.getReporter().reportsIrregularities()) {
      reader_.getReporter().reportNumber(subject(), values_[index]);
    }
    return values_[index];
  }

  // Selects the element if it derives from `Class`, otherwise the object.
  template <class Class, class Object, class Element>
  static auto& choose(Object& object, Element& element) {
    if constexpr (std::derived_from<Element, Class>) {
      return element;
    } else {
      return object;
    }
  }

  template <class Object, class Element>
  void put(int /*number*/, NoTarget /*target*/, Object& /*object*/, Element& /*element*/) const {}
  template <class Class, class Object, class Element>
  void put(int number, VornString Class::*target, Object& object, Element& element) const {
    choose<Class>(object, element).*target = values_[static_cast<std::size_t>(number) - 1];
  }
  // Stores the decimal number at the start of the value, or 0. See parseInteger.
  template <class Class, class Object, class Element>
  void put(int number, std::int32_t Class::*target, Object& object, Element& element) const {
    choose<Class>(object, element).*target =
        parseInteger(numberAt(static_cast<std::size_t>(number) - 1)).value_or(0);
  }
  template <class Class, class Object, class Element>
  void put(int number, void (Class::*target)(const VornString&), Object& object, Element& /*element*/) const {
    (object.*target)(values_[static_cast<std::size_t>(number) - 1]);
  }

  ExportReader& reader_;
  std::array<const char*, kCount> values_;
};

// Passes the last record read to `handle` unless it is empty. A record that starts with a zero byte counts as
// empty.
template <const auto& kLayout, class Handle>
void handleRecord(ExportReader& reader, Handle& handle) {
  if (*reader.getRecord() == '\0') {
    return;
  }
  Reporter& reporter = reader.getReporter();
  if (!reporter.reportsIrregularities()) {
    handle(Record<kLayout>(reader));
    return;
  }
  const RecordShape shape = inspectRecord({reader.getRecord(), reader.getLength()}, reader.isTooLong());
  const Record<kLayout> record(reader);
  reportShape(reporter, shape, {kLayout.last(), kLayout.width}, record.subject());
  handle(record);
}

// Reads one record and passes it to `handle`. Returns false for the last record of the section or file.
template <const auto& kLayout, class Handle>
bool readAndHandleRecord(ExportReader& reader, Handle handle) {
  const bool more = reader.readRecord();
  handleRecord<kLayout>(reader, handle);
  return more;
}

// Reads the rest of the section and passes every record that is not empty to `handle`.
template <const auto& kLayout, class Handle>
void forEachRecord(ExportReader& reader, Handle handle) {
  while (readAndHandleRecord<kLayout>(reader, handle)) {
  }
}

}  // namespace silrdm
