// ModelNames: the identifiers by which a writer's format knows the elements of a model.
//
// An element goes by its physical name (or, when asked for, by its name), and where that is empty by the
// other. What a format cannot take is changed: control characters become blanks, blanks at the ends go, what
// has no name at all is called after its place ("table_3"), what is too long, or would be with its number,
// ends in a hash of the whole name instead, and what is not unique gets a number. A name that needs no change
// is never changed for the sake of one that does, and a changed one depends on nothing but its own text and
// on how many before it have the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/base/unicode.h"
#include "host/writers/common/relational_model.h"

class Utf8Texts;

// What a format allows for names. Names that differ in letter case alone clash in every format.
struct NameRules {
  enum class Unit : std::uint8_t { bytes, characters, utf16 };

  // Where names must differ from each other: three sets of a schema, and the indexes of one table.
  enum Scope : std::uint8_t { relations = 1, indexes = 2, constraints = 4, ownIndexes = 8 };

  std::size_t limit = SIZE_MAX;
  Unit unit = Unit::bytes;
  bool hasSchemas = true;                // if not, all elements share the scopes of one
  std::uint8_t indexScopes = indexes;    // of an index's name
  std::uint8_t keyScopes = constraints;  // of a candidate key's name
  // Of a foreign key's name; 0: it must differ from those of its table's keys alone. An index of the foreign
  // key may have its name, too.
  std::uint8_t foreignScopes = constraints;
  std::string_view homeSchema = {};      // contains elements without a schema as well
  std::string_view replaced = {};        // single-byte characters that no name can have: each becomes '_'
  std::string_view variableMark = {};    // means something to a client: its last character becomes '_'
  bool takesAllPlanes = true;            // characters beyond the first 65,536, which else become '_'
  std::string_view schemaPrefix = {};    // kept for the system: a schema may not begin so
  std::string_view relationPrefix = {};  // the same of tables, views, synonyms and indexes
  std::string_view keyPrefix = {};       // the same of keys
  // Names that the system keeps for itself, each between blanks.
  std::string_view schemas = {};
  std::string_view indexNames = {};  // of keys, too
  std::string_view columns = {};
  // Bytes of the file that a schema or table is stored in, without what numbers and endings take: a letter of
  // ASCII, a digit and '_' take one, any other character five.
  std::size_t fileNameLimit = SIZE_MAX;
};

// A name that a format could not take as it was.
struct NameChange {
  const VornModelObject* object;
  std::string wanted;  // as UTF-8; empty: it had none
  std::string written;
};

class ModelNames {
 public:
  // Names the schemas, tables, views, synonyms of tables, columns of tables, keys and indexes of the model.
  // Keys without a name stay without: no format needs one.
  ModelNames(const RelationalModel& model, const NameRules& rules, bool logical, Utf8Texts& texts);

  // The identifier of one of these, as UTF-8 without quotes.
  std::string_view get(const VornModelObject& object) const;

  // By kind, each in the order of the model; at the end, by table, what is named within one.
  const std::vector<NameChange>& getChanges() const { return changes_; }

  // The elements whose names are too long for the rules' limit.
  const std::unordered_set<const VornModelObject*>& getShortened() const { return shortened_; }

 private:
  friend class NameScopes;
  void nameForeignKeys(const VornClass& table, const NameRules& rules, Utf8Texts& texts);

  bool logical_;
  std::unordered_map<const VornModelObject*, std::string> written_;  // of those that do not go by their own
  std::vector<NameChange> changes_;
  std::unordered_set<const VornModelObject*> shortened_;
};
