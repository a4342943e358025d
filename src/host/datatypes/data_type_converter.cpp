#include "host/datatypes/data_type_converter.h"

#include <algorithm>
#include <string>

#include "host/base/log.h"
#include "host/datatypes/data_type_constants.h"
#include "host/datatypes/logical_types.h"
#include "host/datatypes/native_types.h"

namespace {

bool isBlank(char byte) {
  return kVornBlanks.find(byte) != std::string_view::npos;
}

bool isParenthesis(char byte) {
  return byte == '(' || byte == ')';
}

bool isDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

// The text in upper case, one blank between its words and none at its ends.
std::string normalize(std::string_view text) {
  std::string words;
  for (const char byte : toUpperAscii(text)) {
    if (!isBlank(byte)) {
      words += byte;
    } else if (!words.empty() && words.back() != ' ') {
      words += ' ';
    }
  }
  if (words.ends_with(' ')) {
    words.pop_back();
  }
  return words;
}

// "NUMBER (10)" as "NUMBER(10)".
std::string withoutBlanksAtParentheses(std::string_view words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool atParenthesis =
        words[i] == ' ' && (isParenthesis(words[i - 1]) || isParenthesis(words[i + 1]));
    if (!atParenthesis) {
      text += words[i];
    }
  }
  return text;
}

// "CHAR(16) FOR BIT DATA" as "CHAR FOR BIT DATA". An argument list that is not closed ends with the text.
std::string withoutArguments(std::string_view words) {
  std::string text;
  std::size_t depth = 0;
  for (const char byte : words) {
    if (byte == '(') {
      ++depth;
    } else if (byte == ')' && depth > 0) {
      --depth;
    } else if (depth == 0) {
      text += byte;
    }
  }
  return normalize(text);
}

// Type codes that end in a length: "C20" as "C".
std::string withoutLength(std::string name) {
  while (!name.empty() && isDigit(name.back())) {
    name.pop_back();
  }
  return name;
}

// Pictures, which repeat a 9 for each digit: "S999V99" as "S9V9".
std::string withSingleNines(std::string name) {
  const auto isRepeated9 = [](char first, char second) { return first == '9' && second == '9'; };
  name.erase(std::unique(name.begin(), name.end(), isRepeated9), name.end());
  return name;
}

// The spelling to try last, in data stores that write a size into the name itself.
std::string withoutSize(const VornDataStoreVersion& version, std::string name) {
  const std::string_view store = version.getDataStore().view();
  if (store == VornDataTypeConstants::DATASTORE_UNIFACE || store == VornDataTypeConstants::DATASTORE_INGRES) {
    return withoutLength(std::move(name));
  }
  if (store == VornDataTypeConstants::DATASTORE_NONSTOP_SQL) {
    return withSingleNines(std::move(name));
  }
  return name;
}

std::string_view convert(const VornDataStoreVersion& version, std::string_view nativeType) {
  const auto find = [&](std::string_view name) {
    return findHostType(version.getDataStore().view(), version.getVersion(), name);
  };
  const std::string words = normalize(nativeType);
  if (const auto found = find(withoutBlanksAtParentheses(words)); !found.empty()) {
    return found;
  }
  const std::string name = withoutArguments(words);
  if (const auto found = find(name); !found.empty()) {
    return found;
  }
  return find(withoutSize(version, name));
}

}  // namespace

VornDataTypeConverter::VornDataTypeConverter(VornLog& log, const VornDataStoreVersion& version,
                                             VornString tool)
    : log_(log), version_(version), tool_(std::move(tool)) {
}

const VornString& VornDataTypeConverter::getImportTypeName(const VornString& nativeType) {
  const std::string_view found = convert(version_, nativeType.view());
  if (found.empty() && log_.isEnabled(VornSeverity::debug)) {
    log_.debug(std::string(tool_.view()) + ": no data type '" + std::string(nativeType.view()) + "' in " +
               std::string(version_.getDataStore().view()) + ' ' +
               std::string(version_.getVersionText().view()));
  }
  importTypeName_ = found.empty() ? VornString(kUndefinedType) : VornString(found);
  return importTypeName_;
}
