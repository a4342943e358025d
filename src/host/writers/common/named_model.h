// NamedModel: a store model with names and types for its elements, as the writers of diagrams need them.
#pragma once

#include <string>

#include "host/base/pemo.h"
#include "host/writers/common/names.h"
#include "host/writers/common/output_format.h"
#include "host/writers/common/relational_model.h"
#include "host/writers/common/sql_types.h"
#include "host/writers/common/texts.h"

struct NamedModel {
  // The largest size of a name in bytes: as much as databases accept, because names are repeated in
  // references.
  static constexpr std::size_t kLongestName = 128;

  const VornStoreModel& model;
  bool logical;
  Utf8Texts texts;
  RelationalModel elements;
  ModelNames names;  // any text without line ends that is unique among its siblings
  SqlTypes types;

  // The model must outlive it.
  NamedModel(const VornStoreModel& storeModel, const VornOutputFormat& format)
      : model(storeModel),
        logical(format.logicalNames),
        elements(storeModel),
        names(elements, {.limit = kLongestName}, logical, texts),
        types(getSqlDialect(storeModel, format.dialect.view()), storeModel, format) {}

  // What the type of a column is called in a picture: a scale of 0 goes without saying.
  std::string typeOf(const VornAttribute& column) { return withoutZeroScale(types.get(column.type.get())); }

  // The warnings, at the end.
  void tellOf(VornLog& log) const {
    texts.tellOf(log);
    if (const std::size_t count = names.getShortened().size(); count > 0) {
      PEMO::NAMES_SHORTENED.log(log, {VornString(static_cast<std::int32_t>(count))});
    }
  }

  // A text on one line.
  std::string line(const VornString& text) { return toOneLine(texts(text)); }
  // The same of the name of an object that `names` does not know.
  std::string lineOfName(const VornModelObject& object) { return line(getPreferredName(object, logical)); }
};
