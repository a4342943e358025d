#include "host/writers/common/sql_types.h"

#include "host/datatypes/logical_types.h"
#include "host/metamodel/casting.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/type.h"

namespace {

// The type that says what this one is; null where none does.
const VornDerivedType* findDefinition(const VornType* type) {
  const auto* derived = dyn_cast<VornDerivedType>(type);
  return derived == nullptr || derived->getDataType().empty() || isUndefined(derived->getDataType())
             ? nullptr
             : derived;
}

std::vector<TypeRule> readOwnRules(const VornOutputFormat& format) {
  std::vector<std::string> problems;  // none: the rules were checked when they were read
  return readTypeRules(format.typeRules.view(), problems);
}

}  // namespace

std::string makeSqlType(std::string_view hostType, int length, int scale, const SqlDialect& dialect) {
  const ColumnType type{{}, hostType, length, scale};
  const TypeRule* rule = findTypeRule(type, dialect.name, {}, true);
  return rule == nullptr ? "" : makeTarget(*rule, type);
}

std::string withoutZeroScale(std::string_view type) {
  constexpr std::string_view kScale = ",0";
  std::string text(type);
  if (const std::size_t place = text.find(",0)"); place != std::string::npos) {
    text.erase(place, kScale.size());
  }
  return text;
}

SqlTypes::SqlTypes(const SqlDialect& dialect, const VornStoreModel& model, const VornOutputFormat& format)
    : dialect_(dialect),
      store_(model.dataStoreName.view()),
      own_(readOwnRules(format)),
      keepsDecimals_(format.keepsDecimals) {
}

const SqlTypes::Written& SqlTypes::find(const VornType* type) {
  const auto [place, isNew] = types_.try_emplace(type);
  Written& written = place->second;
  if (isNew) {
    if (const VornDerivedType* derived = findDefinition(type)) {
      const ColumnType column{store_, derived->getDataType().view(), derived->getLength(),
                              derived->getScale()};
      if (const TypeRule* rule = findTypeRule(column, dialect_.name, own_, keepsDecimals_)) {
        written = {makeTarget(*rule, column), rule->loses};
      }
    }
    if (written.text.empty()) {
      written.text = makeSqlType("VARCHAR", 0, 0, dialect_);
    }
  }
  return written;
}

std::string_view SqlTypes::getHostType(const VornType* type) {
  const VornDerivedType* derived = findDefinition(type);
  return derived == nullptr ? std::string_view() : derived->getDataType().view();
}
