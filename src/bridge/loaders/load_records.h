// What the loaders share: from a record to its element and host object, and into a registry.
#pragma once

#include <memory>
#include <utility>

#include "bridge/import/import.h"
#include "bridge/loaders/loaders.h"
#include "bridge/reader/record.h"

namespace silrdm {

// Creates a host object and its element from the record.
template <class Object, class Element, const auto& kLayout>
Parsed<Object> makeParsed(const Record<kLayout>& record) {
  auto element = std::make_unique<Element>(record.getIdentifier(), record.getPlace());
  Parsed<Object> object(new Object());
  record.fill(*object, *element);
  hang(std::move(element), *object);
  return object;
}

// Creates the element of a record that becomes no host object.
template <class Element, const auto& kLayout>
std::unique_ptr<Element> makeElement(const Record<kLayout>& record) {
  auto element = std::make_unique<Element>(record.getIdentifier(), record.getPlace());
  record.fill(*element, *element);
  return element;
}

// Creates an object from every record of the section and adds it to `registry`. `finish` gets the object and
// the record and sets what the layout does not.
template <const auto& kLayout, class Element, class Object, class Finish>
void loadEach(ExportReader& reader, SILObjectRegistry<Object>& registry, Finish finish) {
  forEachRecord<kLayout>(reader, [&](const Record<kLayout>& record) {
    Parsed<Object> object = makeParsed<Object, Element>(record);
    finish(*object, record);
    registry.add(std::move(object));
  });
}
template <const auto& kLayout, class Element, class Object>
void loadEach(ExportReader& reader, SILObjectRegistry<Object>& registry) {
  loadEach<kLayout, Element>(reader, registry, [](const Object& /*object*/, const auto& /*record*/) {});
}

}  // namespace silrdm
