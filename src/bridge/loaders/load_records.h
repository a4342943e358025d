// What the loaders share: from a record to its element and host object, and into a registry.
#pragma once

#include <memory>
#include <utility>

#include "bridge/import/import.h"
#include "bridge/loaders/loaders.h"
#include "bridge/reader/record.h"

namespace silrdm {

// A new host object with a new element, both filled from the record.
template <class Object, class Element, const auto& kLayout>
Parsed<Object> makeParsed(const Record<kLayout>& record) {
  auto element = std::make_unique<Element>(record.getIdentifier(), record.getPlace());
  Parsed<Object> object(new Object());
  record.fill(*object, *element);
  hang(std::move(element), *object);
  return object;
}

// The same for records that become no host object.
template <class Element, const auto& kLayout>
std::unique_ptr<Element> makeElement(const Record<kLayout>& record) {
  auto element = std::make_unique<Element>(record.getIdentifier(), record.getPlace());
  record.fill(*element, *element);
  return element;
}

// Makes an object of every record of the section, hands it to `finish` with its record for what the layout
// does not say, and enters it.
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
