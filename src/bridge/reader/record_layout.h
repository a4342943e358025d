// A record's layout: the fields that the import uses, their numbers and names, and where their values go.
// Each loader declares the one of its section, and a Record is read by it.
//
//   constexpr auto kLayout = recordLayout(6,  // fields of a whole record
//                                         field(2, "identifier"),
//                                         field(3, "name", &VornModelObject::setName),
//                                         field(6, "description", &VornModelObject::description));
//
// A field's target is a text or a number of the element or the host object that the record becomes, or a
// function of the host object that takes a text. A field without a target is the loader's to read.
#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <tuple>

namespace silrdm {

struct FieldName {
  int number;  // in the record, counted from 1
  const char* name;
};

// A layout without its targets.
struct RecordFields {
  std::span<const FieldName> names;
  int width = 0;  // the fields that the modelling tool writes
};

template <class Target>
struct LayoutField {
  int number;
  const char* name;
  Target target;
};

struct NoTarget {};

constexpr LayoutField<NoTarget> field(int number, const char* name) {
  return {number, name, {}};
}
template <class Target>
constexpr LayoutField<Target> field(int number, const char* name, Target target) {
  return {number, name, target};
}

template <class... Targets>
struct RecordLayout {
  int width;
  std::tuple<LayoutField<Targets>...> fields;
  std::array<FieldName, sizeof...(Targets)> names;

  // Of the last field that the import uses.
  constexpr int last() const { return std::ranges::max(names, {}, &FieldName::number).number; }

  // 0 if no field has that name.
  constexpr int numberOf(std::string_view name) const {
    for (const FieldName& field : names) {
      if (field.name == name) {
        return field.number;
      }
    }
    return 0;
  }

  constexpr RecordFields getFields() const { return {names, width}; }
};

template <class... Targets>
constexpr RecordLayout<Targets...> recordLayout(int width, LayoutField<Targets>... fields) {
  return {width, {fields...}, {FieldName{fields.number, fields.name}...}};
}

}  // namespace silrdm
