// TypeRules: which type of SQL a column's type becomes, as rules of a table: the built-in one, and a user's
// own in front of it. Both have one form, tab-separated with a heading line:
//
//   source type   the host's type ("VARCHAR"), or one of a data store alone ("ORACLE:DATE")
//   lengths       "40", "1-40", "41-", or empty for any; 0 is one that is not known
//   scales        the same
//   dialect       one of `vorn dialects`, or empty for any
//   target type   with {length}, {precision} and {scale} for the column's sizes
//   loses         what of the values the target cannot hold; empty: nothing
//
// The first rule that fits counts. A rule of a data store goes before those of any.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

struct TypeRule {
  std::string_view source;
  std::string_view dialect;
  std::string_view lengths;
  std::string_view scales;
  std::string_view target;
  std::string_view loses;
};

// The heading line of the form.
inline constexpr std::string_view kTypeRulesHeading =
    "source type\tlengths\tscales\tdialect\ttarget type\tloses";

// The built-in rules, by source type and dialect.
std::span<const TypeRule> getTypeRules();

// The rules of a text in that form, which must outlive them. Blank lines and those that begin with # are
// skipped. What is wrong is added to `problems`, as "line 3: ...".
std::vector<TypeRule> readTypeRules(std::string_view text, std::vector<std::string>& problems);

// A type as a column has it; length and scale below 1 are not known.
struct ColumnType {
  std::string_view store;  // the model's data store; empty: any
  std::string_view hostType;
  int length = 0;
  int scale = 0;
};

// The first of `own`, or else of the built-in rules, that fits; null where there is none. With
// `keepsDecimals` the built-in rules make no integers of decimals without a scale.
const TypeRule* findTypeRule(const ColumnType& type, std::string_view dialect, std::span<const TypeRule> own,
                             bool keepsDecimals);

// The rule's target with the column's sizes.
std::string makeTarget(const TypeRule& rule, const ColumnType& type);
