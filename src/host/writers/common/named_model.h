// NamedModel: a store model with names and types for its elements, as the writers of diagrams need them.
#pragma once

#include <string>

#include "host/std/output_format.h"
#include "host/writers/common/names.h"
#include "host/writers/common/relational_model.h"
#include "host/writers/common/sql_types.h"
#include "host/writers/common/texts.h"

struct NamedModel {
  const VornStoreModel& model;
  bool logical;
  Utf8Texts texts;
  RelationalModel elements;
  ModelNames names;  // any text that can stand on a line and differs from its neighbours'
  SqlTypes types;

  // The model must outlive it.
  NamedModel(const VornStoreModel& storeModel, const VornOutputFormat& format)
      : model(storeModel),
        logical(format.logicalNames),
        elements(storeModel),
        names(elements, {}, logical, texts),
        types(getSqlDialect(storeModel, format.dialect.view()), storeModel, format) {}

  // A text on one line.
  std::string line(const VornString& text) { return toOneLine(texts(text)); }
  // The same of the name of an object that `names` does not know.
  std::string lineOfName(const VornModelObject& object) { return line(getPreferredName(object, logical)); }
};
