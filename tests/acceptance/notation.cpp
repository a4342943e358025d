#include "notation.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace {

std::optional<char> findByte(std::string_view name) {
  static const std::map<std::string_view, char> kNames = {{"STX", '\2'}, {"ETX", '\3'}, {"TAB", '\t'},
                                                          {"LF", '\n'},  {"CR", '\r'},  {"FS", '\x1C'},
                                                          {"SP", ' '},   {"NUL", '\0'}};
  if (const auto found = kNames.find(name); found != kNames.end()) {
    return found->second;
  }
  if (name.size() == 2) {
    const auto code = toNumber(name, 16);
    return code && *code >= 0 ? std::optional(static_cast<char>(*code)) : std::nullopt;
  }
  return name.size() == 1 ? std::optional(name.front()) : std::nullopt;
}

// The bytes of what stands between < and >.
std::optional<std::string> findBytes(std::string_view token) {
  const std::size_t star = token.rfind('*');
  const auto byte = findByte(token.substr(0, star));
  const auto count = star == std::string_view::npos ? 1 : toNumber(token.substr(star + 1));
  if (!byte || !count || *count < 0) {
    return std::nullopt;
  }
  return std::string(static_cast<std::size_t>(*count), *byte);
}

// Replaces every <token> by what `replace` makes of it.
template <class Replace>
std::string replaceTokens(std::string_view text, Replace replace) {
  std::string replaced;
  for (;;) {
    const std::size_t open = std::min(text.find('<'), text.size());
    const std::size_t close = text.find('>', open);
    replaced += text.substr(0, open);
    if (close == std::string_view::npos) {
      return replaced += text.substr(open);
    }
    replaced += replace(text.substr(open + 1, close - open - 1));
    text.remove_prefix(close + 1);
  }
}

}  // namespace

std::string toBytes(std::string_view notation) {
  return replaceTokens(notation, [](std::string_view token) {
    const auto bytes = findBytes(token);
    if (!bytes) {
      throw std::invalid_argument("no byte is written <" + std::string(token) + ">");
    }
    return *bytes;
  });
}

std::string expandRepeats(std::string_view text) {
  return replaceTokens(text, [](std::string_view token) {
    const auto bytes = token.find('*') == std::string_view::npos ? std::nullopt : findBytes(token);
    return bytes ? *bytes : "<" + std::string(token) + ">";
  });
}

std::string toRecord(std::string_view fields) {
  std::string record;
  for (int reached = 1, least = 1; !fields.empty(); least = reached + 1) {
    const std::string_view field = trim(takeUpTo(fields, '|'));
    const std::size_t equals = field.find('=');
    const auto number = toNumber(field.substr(0, equals));
    if (equals == std::string_view::npos || !number || *number < least) {
      throw std::invalid_argument("no field, or out of order: " + std::string(field));
    }
    record.append(static_cast<std::size_t>(*number - reached), '\t');
    record += toBytes(trim(field.substr(equals + 1)));
    reached = *number;
  }
  return record;
}
