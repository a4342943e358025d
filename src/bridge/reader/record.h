// Record: one record of a section, cut up into fields by the section's layout.
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
  // The name of a field of the layout; any other does not compile.
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

  // Cuts up the record that `reader` read last, which must not read on as long as this object is used.
  explicit Record(ExportReader& reader) : reader_(reader) {
    char* cursor = reader.getRecord();
    for (const char*& value : values_) {
      value = nextField(cursor);
    }
  }

  // The field's value; empty when the record has no such field.
  const char* text(Field field) const { return values_[field.index_]; }
  bool isEmpty(Field field) const { return *text(field) == '\0'; }
  // Whether the value is exactly `word`.
  bool is(Field field, const char* word) const { return std::strcmp(text(field), word) == 0; }
  // The value of a field that should be a number; reports one that is none.
  const char* number(Field field) const { return numberAt(field.index_); }

  // Every record has its identifier in the second field.
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

  // Puts the values of all fields that have a target where they go.
  template <class Object, class Element>
  void fill(Object& object, Element& element) const {
    std::apply([&](const auto&... field) { (put(field.number, field.target, object, element), ...); },
               kLayout.fields);
  }

 private:
  static constexpr std::size_t kCount = static_cast<std::size_t>(kLayout.last());

  const char* numberAt(std::size_t index) const {
    if (reader_.getReporter().isListening()) {
      reader_.getReporter().reportNumber(subject(), values_[index]);
    }
    return values_[index];
  }

  // The element or the object, whichever has members of `Class`.
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
  // The decimal number at the value's start; 0 when there is none. See parseInteger.
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

// Hands the record that was read last to `handle` unless there is nothing in it: it stands for no item. One
// whose first byte is zero reads as empty too.
template <const auto& kLayout, class Handle>
void handleRecord(ExportReader& reader, Handle& handle) {
  if (*reader.getRecord() == '\0') {
    return;
  }
  Reporter& reporter = reader.getReporter();
  if (!reporter.isListening()) {
    handle(Record<kLayout>(reader));
    return;
  }
  const RecordShape shape = inspectRecord({reader.getRecord(), reader.getLength()}, reader.isTooLong());
  const Record<kLayout> record(reader);
  reportShape(reporter, shape, {kLayout.last(), kLayout.width}, record.subject());
  handle(record);
}

// Reads one record and hands it to `handle`. Returns what readRecord returns.
template <const auto& kLayout, class Handle>
bool readAndHandleRecord(ExportReader& reader, Handle handle) {
  const bool more = reader.readRecord();
  handleRecord<kLayout>(reader, handle);
  return more;
}

// Reads the section to its end and hands every record that is not empty to `handle`.
template <const auto& kLayout, class Handle>
void forEachRecord(ExportReader& reader, Handle handle) {
  while (readAndHandleRecord<kLayout>(reader, handle)) {
  }
}

}  // namespace silrdm
