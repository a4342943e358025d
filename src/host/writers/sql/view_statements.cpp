#include "host/writers/sql/view_statements.h"

#include <algorithm>

#include "host/sql/sql_sources.h"
#include "host/writers/sql/query_shape.h"
#include "host/writers/sql/sql_script.h"
#include "host/writers/sql/statement_reading.h"

namespace {

using Kind = StatementToken::Kind;

class StatementCheck {
 public:
  StatementCheck(const SqlScript& script, SourceNames& sources, const VornSQLViewEntity& view,
                 std::string_view statement)
      : script_(script),
        sources_(sources),
        view_(view),
        statement_(statement),
        tokens_(readStatement(statement, script.dialect).tokens) {}

  std::string find() {
    if (std::string why = findShapeObstacle(tokens_, script_.dialect); !why.empty()) {
      return why;
    }
    if (std::string why = learnSources(); !why.empty()) {
      return why;
    }
    const bool takesAnyWord =
        findSqlDialectOf(script_.model) == &script_.dialect && !script_.format.logicalNames;
    learnOwnNames();
    return takesAnyWord ? "" : findForeignWord();
  }

 private:
  std::string stored(const StatementToken& token) const {
    return foldIdentifier(token.text, token.kind == Kind::quotedName, script_.dialect);
  }

  std::string learnSources() {
    if (view_.sourceElementCollection.count() > kMostViewSources) {
      return "it reads too many tables to look into";
    }
    std::unordered_set<std::string> words;
    for (const StatementToken& token : tokens_) {
      if (token.isName()) {
        words.insert(stored(token));
      }
    }
    std::unordered_set<std::string> found;
    const VornDataPackage* home = getSchema(view_);
    for (const VornClassifier* source : view_.sourceElementCollection) {
      const SourceNames::Names& names = sources_.get(*source);
      if (!words.contains(names.name)) {
        return "the script calls what it reads by another name: " +
               quoteForReason(script_.names.get(*source));
      }
      if (!names.schema.empty()) {
        if (getSchema(*source) != home && !words.contains(names.schema)) {
          return "it reads a table of another schema without its name: " +
                 quoteForReason(script_.names.get(*source));
        }
        known_.insert(names.schema);
      }
      known_.insert(names.name);
      read_.push_back(&names);
      found.insert(foldCase(script_.names.get(*source)));
    }
    for (const std::string& name : findSourceNames(statement_)) {
      if (!found.contains(foldCase(name))) {
        return "it reads what is not in the model: " + quoteForReason(name);
      }
    }
    return {};
  }

  // The names that the statement gives to tables, columns and queries.
  void learnOwnNames() {
    for (std::size_t i = 1; i < tokens_.size(); ++i) {
      const StatementToken& previous = tokens_[i - 1];
      if (!canBeAlias(tokens_[i])) {
        continue;
      }
      const bool isBehindValue = previous.kind == Kind::close || previous.is("END") ||
                                 (previous.isName() && !isSharedWord(previous));
      const bool isQuery =
          i + 2 < tokens_.size() && tokens_[i + 1].is("AS") && tokens_[i + 2].kind == Kind::open;
      if (previous.is("AS") || isQuery || (isBehindValue && isFollowedAsAlias(i))) {
        known_.insert(stored(tokens_[i]));
      }
    }
  }

  // A word that the dialect keeps for itself begins something else: LIMIT 5.
  bool canBeAlias(const StatementToken& token) const {
    const bool isPlainWord = std::ranges::all_of(
        token.text, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
    return token.kind == Kind::quotedName || (token.kind == Kind::word && !isSharedWord(token) &&
                                              (!isPlainWord || standsUnquoted(token.text, script_.dialect)));
  }

  bool isFollowedAsAlias(std::size_t place) const {
    if (place + 1 == tokens_.size()) {
      return true;
    }
    const StatementToken& next = tokens_[place + 1];
    return next.kind == Kind::comma || next.kind == Kind::close || (isSharedWord(next) && !next.is("SELECT"));
  }

  // Each word is looked up once, in all that the statement reads.
  bool isKnown(const std::string& name) {
    const bool isKnownHere =
        known_.contains(name) || std::ranges::any_of(read_, [&](const SourceNames::Names* source) {
          return source->columns.contains(name);
        });
    if (isKnownHere) {
      known_.insert(name);
    }
    return isKnownHere;
  }

  std::string findForeignWord() {
    for (const StatementToken& token : tokens_) {
      const bool isForeign = token.kind == Kind::mark
                                 ? std::string_view("*-/=<>").find(token.text) == std::string_view::npos
                                 : token.isName() && !isSharedWord(token, &script_.dialect) &&
                                       (isSharedWord(token) || !isKnown(stored(token)));
      if (isForeign) {
        return "it may use what only another dialect knows: " + quoteForReason(token.text);
      }
    }
    return {};
  }

  const SqlScript& script_;
  SourceNames& sources_;
  const VornSQLViewEntity& view_;
  std::string_view statement_;
  std::vector<StatementToken> tokens_;
  std::vector<const SourceNames::Names*> read_;
  std::unordered_set<std::string> known_;
};

}  // namespace

std::string SourceNames::getStored(const VornModelObject& element) const {
  const std::string_view name = script_.names.get(element);
  return foldIdentifier(name, script_.format.quoteAll || !standsUnquoted(name, script_.dialect),
                        script_.dialect);
}

const SourceNames::Names& SourceNames::get(const VornClassifier& source) {
  const auto [place, isNew] = names_.try_emplace(&source);
  Names& names = place->second;
  if (isNew) {
    const VornDataPackage* schema = script_.dialect.names.hasSchemas ? getSchema(source) : nullptr;
    names.name = getStored(source);
    names.schema = schema == nullptr ? "" : getStored(*schema);
    for (const VornFeature* column : source.featureCollection) {
      names.columns.insert(getStored(*column));
    }
  }
  return names;
}

std::string findDanger(const SqlScript& script, std::string_view statement) {
  const StatementReading reading = readStatement(statement, script.dialect);
  return reading.obstacle.empty() ? findQueryObstacle(reading.tokens) : reading.obstacle;
}

std::string findObstacle(const SqlScript& script, SourceNames& sources, const VornSQLViewEntity& view,
                         std::string_view statement) {
  return StatementCheck(script, sources, view, statement).find();
}
