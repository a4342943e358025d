// A record layout lists the fields that the import uses: number, name and target of each. Every loader
// declares the layout of its section; Record reads by it.
//
//   constexpr auto kLayout = recordLayout(6,  // fields of a whole record
//                                         field(2, "identifier"),
//                                         field(3, "name", &VornModelObject::setName),
//                                         field(6, "description", &VornModelObject::description));
//
// A target is a text or number member of the element or host object, or a member function of the host object
// that takes a text. The loader handles fields without a target.
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
  int width = 0;  // number of fields the modelling tool writes
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

  // The number of the last field that the import uses.
  constexpr int last() const { return std::ranges::max(names, {}, &FieldName::number).number; }

  // Returns 0 if no field has that name.
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
