#include "host/writers/common/sql_types.h"

#include <algorithm>
#include <charconv>

#include "host/datatypelib/logical_types.h"
#include "host/metamodel/type.h"

namespace {

struct DdlType {
  std::string_view hostType;
  std::string_view dialect;
  std::string_view pattern;
  std::string_view withoutArgument;
  std::string_view largest;  // argument; empty: any
  std::string_view beyond;   // the host type to take in its place when the argument is larger; empty: none

  constexpr std::pair<std::string_view, std::string_view> key() const { return {hostType, dialect}; }
};
constexpr DdlType kDdlTypes[] = {
#include "host/writers/common/ddl_types.inc"
};
static_assert(std::ranges::is_sorted(kDdlTypes, {}, &DdlType::key), "the table is searched by halves");

const DdlType* findDdlType(std::string_view hostType, std::string_view dialect) {
  const std::pair key(hostType, dialect);
  const auto* const found = std::ranges::lower_bound(kDdlTypes, key, {}, &DdlType::key);
  return found == std::end(kDdlTypes) || found->key() != key ? nullptr : found;
}

bool hasArgument(const DdlType& type, std::string_view argument) {
  return type.pattern.find(argument) != std::string_view::npos;
}

void replace(std::string& text, std::string_view placeholder, int number) {
  if (const std::size_t place = text.find(placeholder); place != std::string::npos) {
    text.replace(place, placeholder.size(), std::to_string(number));
  }
}

// The type that says what this one is; null where none does.
const VornDerivedType* findDefinition(const VornType* type) {
  const auto* derived = dynamic_cast<const VornDerivedType*>(type);
  return derived == nullptr || derived->getDataType().empty() || isUndefined(derived->getDataType())
             ? nullptr
             : derived;
}

}  // namespace

std::string makeSqlType(std::string_view hostType, int length, int scale, const SqlDialect& dialect) {
  const DdlType* type = findDdlType(hostType, dialect.name);
  if (type == nullptr) {
    return "";
  }
  const bool hasScale = hasArgument(*type, "{scale}");
  if (length < 1 || !(hasScale || hasArgument(*type, "{length}") || hasArgument(*type, "{precision}"))) {
    return std::string(type->withoutArgument);
  }
  scale = std::max(scale, 0);
  int argument = hasScale ? std::max(length, scale) : length;
  int largest = argument;
  std::from_chars(type->largest.data(), type->largest.data() + type->largest.size(), largest);
  if (argument > largest) {
    if (!type->beyond.empty()) {
      return makeSqlType(type->beyond, length, scale, dialect);
    }
    if (!hasScale) {
      return std::string(type->withoutArgument);  // a time has no such precision: the number is another size
    }
    argument = largest;
  }
  std::string text(type->pattern);
  replace(text, "{length}", argument);
  replace(text, "{precision}", argument);
  replace(text, "{scale}", std::min(scale, argument));
  return text;
}

std::string withoutZeroScale(std::string_view type) {
  constexpr std::string_view kScale = ",0";
  std::string text(type);
  if (const std::size_t place = text.find(",0)"); place != std::string::npos) {
    text.erase(place, kScale.size());
  }
  return text;
}

std::string_view SqlTypes::get(const VornType* type) {
  const auto [place, isNew] = types_.try_emplace(type);
  std::string& text = place->second;
  if (isNew) {
    if (const VornDerivedType* derived = findDefinition(type)) {
      text = makeSqlType(derived->getDataType().view(), derived->getLength(), derived->getScale(), dialect_);
    }
    if (text.empty()) {
      text = makeSqlType("VARCHAR", 0, 0, dialect_);
    }
  }
  return text;
}

std::string_view SqlTypes::getHostType(const VornType* type) {
  const VornDerivedType* derived = findDefinition(type);
  return derived == nullptr ? std::string_view() : derived->getDataType().view();
}
