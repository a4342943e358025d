#include "host/writers/common/type_rules.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <map>
#include <tuple>

#include "host/datatypes/native_types.h"
#include "host/writers/common/dialects.h"

namespace {

struct TableRow {
  std::string_view source;
  std::string_view lengths;
  std::string_view scales;
  std::string_view dialect;
  std::string_view target;
  std::string_view loses;

  constexpr std::pair<std::string_view, std::string_view> key() const { return {source, dialect}; }
};
constexpr TableRow kTable[] = {
#include "host/writers/common/ddl_types.inc"
};
static_assert(std::ranges::is_sorted(kTable, {}, &TableRow::key), "the table is searched by halves");

struct Bounds {
  int least = 0;
  int most = INT_MAX;

  bool includes(int size) const { return size >= least && size <= most; }
};

// False where the text is none.
bool readBounds(std::string_view text, Bounds& bounds) {
  const char* const end = text.data() + text.size();
  if (text.empty()) {
    return true;
  }
  const auto [next, problem] = std::from_chars(text.data(), end, bounds.least);
  bounds.most = bounds.least;
  if (problem != std::errc() || bounds.least < 0 || next == end) {
    return problem == std::errc() && bounds.least >= 0;
  }
  bounds.most = INT_MAX;
  if (*next != '-' || next + 1 == end) {
    return *next == '-';
  }
  const auto [last, other] = std::from_chars(next + 1, end, bounds.most);
  return other == std::errc() && last == end && bounds.most >= bounds.least;
}

// With sizes as rules compare them.
ColumnType normalize(ColumnType type) {
  constexpr int kMostDigits = 1'000'000;  // far beyond any database's
  type.length = std::max(type.length, 0);
  if ((type.hostType == "DECIMAL" || type.hostType == "NUMERIC") && type.length > 0) {
    type.length = std::min(type.length, kMostDigits);
    type.scale = std::clamp(type.scale, -kMostDigits, kMostDigits);
    // With a scale below 0 it has zeros in front of the point that its length does not count.
    type.length = type.scale < 0 ? type.length - type.scale : std::max(type.length, type.scale);
  }
  type.scale = std::max(type.scale, 0);
  return type;
}

bool fits(const TypeRule& rule, const ColumnType& type) {
  Bounds lengths;
  Bounds scales;
  return readBounds(rule.lengths, lengths) && readBounds(rule.scales, scales) &&
         lengths.includes(type.length) && scales.includes(type.scale);
}

std::string joinSource(const ColumnType& type) {
  return std::string(type.store) + ":" + std::string(type.hostType);
}

void replace(std::string& text, std::string_view placeholder, int number) {
  for (std::size_t place = text.find(placeholder); place != std::string::npos;
       place = text.find(placeholder)) {
    text.replace(place, placeholder.size(), std::to_string(number));
  }
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
    parts.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.push_back(text);
  return parts;
}

bool isHostType(std::string_view name) {
  return std::ranges::any_of(kTable, [&](const TableRow& row) { return row.source == name; });
}

// Whether the target is a type and nothing more, so that it can be part of a definition.
bool isOneType(std::string_view target) {
  int depth = 0;
  for (const char c : target) {
    depth += static_cast<int>(c == '(') - static_cast<int>(c == ')');
    if (depth < 0 || static_cast<unsigned char>(c) < ' ') {
      return false;
    }
  }
  return depth == 0 && std::ranges::count(target, '\'') % 2 == 0 &&
         target.find(';') == std::string_view::npos && target.find("--") == std::string_view::npos &&
         target.find("/*") == std::string_view::npos;
}

// What is wrong with the rule; empty: nothing.
std::string findProblem(const TypeRule& rule) {
  const std::size_t colon = rule.source.find(':');
  const std::string_view store = rule.source.substr(0, colon == std::string_view::npos ? 0 : colon);
  const std::string_view type = rule.source.substr(colon == std::string_view::npos ? 0 : colon + 1);
  Bounds bounds;
  if (!isHostType(type) || (colon != std::string_view::npos && !isDataStore(store))) {
    return "there is no type '" + std::string(rule.source) + "'; `vorn types` lists them";
  }
  for (const std::string_view sizes : {rule.lengths, rule.scales}) {
    if (!readBounds(sizes, bounds)) {
      return "'" + std::string(sizes) + "' is not a size; write it like 40, 1-40 or 41-";
    }
  }
  if (!rule.dialect.empty() && findSqlDialect(rule.dialect) == nullptr) {
    return "there is no dialect '" + std::string(rule.dialect) + "'; `vorn dialects` lists them";
  }
  if (rule.target.empty() || !isOneType(rule.target)) {
    return "'" + std::string(rule.target) + "' is not a type";
  }
  return {};
}

}  // namespace

std::span<const TypeRule> getTypeRules() {
  static const std::vector<TypeRule> rules = [] {
    std::vector<TypeRule> all;
    for (const TableRow& row : kTable) {
      all.push_back({row.source, row.dialect, row.lengths, row.scales, row.target, row.loses});
    }
    return all;
  }();
  return rules;
}

std::vector<TypeRule> readTypeRules(std::string_view text, std::vector<std::string>& problems) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (text.starts_with(kMark)) {
    text.remove_prefix(kMark.size());
  }
  std::vector<TypeRule> rules;
  std::map<std::tuple<std::string_view, std::string_view, std::string_view, std::string_view>, std::size_t>
      lines;
  std::size_t number = 0;
  for (std::string_view line : split(text, '\n')) {
    ++number;
    line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    if (line.empty() || line.starts_with('#') || (number == 1 && line.starts_with("source type\t"))) {
      continue;
    }
    const std::string place = "line " + std::to_string(number) + ": ";
    const std::vector<std::string_view> fields = split(line, '\t');
    if (fields.size() != 5 && fields.size() != 6) {
      problems.push_back(place + "it has " + std::to_string(fields.size()) +
                         " columns, not 5 or 6 (source type, lengths, scales, dialect, target type, loses)");
      continue;
    }
    const TypeRule rule{fields[0], fields[3], fields[1],
                        fields[2], fields[4], fields.size() == 6 ? fields[5] : std::string_view()};
    if (const std::string problem = findProblem(rule); !problem.empty()) {
      problems.push_back(place + problem);
    }
    const auto [first, isNew] =
        lines.try_emplace({rule.source, rule.lengths, rule.scales, rule.dialect}, number);
    if (!isNew) {
      problems.push_back(place + "line " + std::to_string(first->second) +
                         " has the same type, sizes and dialect");
    }
    rules.push_back(rule);
  }
  return rules;
}

const TypeRule* findTypeRule(const ColumnType& type, std::string_view dialect, std::span<const TypeRule> own,
                             bool keepsDecimals) {
  const ColumnType sizes = normalize(type);
  const std::string ofStore = joinSource(type);
  for (const std::string_view source : {std::string_view(ofStore), type.hostType}) {
    for (const TypeRule& rule : own) {
      if (rule.source == source && (rule.dialect.empty() || rule.dialect == dialect) && fits(rule, sizes)) {
        return &rule;
      }
    }
  }
  const bool isKept = keepsDecimals && (type.hostType == "DECIMAL" || type.hostType == "NUMERIC");
  for (const std::string_view source : {std::string_view(ofStore), type.hostType}) {
    if (source != type.hostType && isKept) {
      continue;
    }
    const auto key = [](const TypeRule& rule) { return std::pair(rule.source, rule.dialect); };
    const std::span<const TypeRule> all = getTypeRules();
    const std::pair wanted(source, dialect);
    for (auto rule = std::ranges::lower_bound(all, wanted, {}, key);
         rule != all.end() && key(*rule) == wanted; ++rule) {
      if (fits(*rule, sizes)) {
        return &*rule;
      }
    }
  }
  return nullptr;
}

std::string makeTarget(const TypeRule& rule, const ColumnType& type) {
  const ColumnType sizes = normalize(type);
  std::string text(rule.target);
  replace(text, "{length}", sizes.length);
  replace(text, "{precision}", sizes.length);
  replace(text, "{scale}", std::min(sizes.scale, sizes.length));
  return text;
}
