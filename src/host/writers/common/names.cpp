#include "host/writers/common/names.h"

#include <algorithm>
#include <cctype>
#include <type_traits>
#include <utility>

#include "host/base/unicode.h"
#include "host/metamodel/casting.h"
#include "host/writers/common/texts.h"

namespace {

// How much of a limit the byte takes: characters count where they begin, in UTF-16 those of four bytes twice.
std::size_t weigh(char byte, NameRules::Unit unit) {
  const auto bits = static_cast<unsigned char>(byte);
  if (unit == NameRules::Unit::bytes) {
    return 1;
  }
  if ((bits & 0xC0) == 0x80) {
    return 0;
  }
  return unit == NameRules::Unit::utf16 && bits >= 0xF0 ? 2 : 1;
}

// The longest beginning of UTF-8 text that is within the limit and cuts no character.
std::string_view fit(std::string_view name, std::size_t limit, NameRules::Unit unit) {
  if (name.size() <= limit) {
    return name;
  }
  std::size_t used = 0;
  for (std::size_t i = 0; i < name.size(); ++i) {
    used += weigh(name[i], unit);
    if (used > limit) {
      return cutUtf8(name, i);
    }
  }
  return name;
}

constexpr std::size_t kHashSize = 9;  // with the '_' in front of it

bool fits(std::string_view name, const NameRules& rules) {
  return fit(name, rules.limit, rules.unit).size() == name.size();
}

// The longest beginning whose file name is within the limit.
std::string_view fitFile(std::string_view name, std::size_t limit) {
  const auto isOther = [](char c) { return !(std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'); };
  std::size_t used = 0;
  for (std::size_t i = 0; i < name.size(); ++i) {
    used += weigh(name[i], NameRules::Unit::characters) * (isOther(name[i]) ? 5 : 1);
    if (used > limit) {
      return cutUtf8(name, i);
    }
  }
  return name;
}

// `name` cut so that `room` is left behind it, and ending in the hash of `whole`.
std::string shorten(std::string_view name, std::string_view whole, std::size_t room, const NameRules& rules) {
  const std::string ending = "_" + hashText(whole);
  return std::string(fit(name, rules.limit - room - ending.size(), rules.unit)) + ending;
}

enum class Kind : std::uint8_t { schema, relation, index, column, key };

// Those of the rules that differ by kind.
struct KindRules {
  std::string_view prefix;    // that no name may begin with
  std::string_view reserved;  // names, each between blanks
  std::size_t fileNameLimit;
};

KindRules getRules(Kind kind, const NameRules& rules) {
  switch (kind) {
    case Kind::schema:
      return {rules.schemaPrefix, rules.schemas, rules.fileNameLimit};
    case Kind::relation:
      return {rules.relationPrefix, {}, rules.fileNameLimit};
    case Kind::index:
      return {rules.relationPrefix, rules.indexNames, SIZE_MAX};
    case Kind::column:
      return {{}, rules.columns, SIZE_MAX};
    default:
      return {rules.keyPrefix, rules.indexNames, SIZE_MAX};
  }
}

// The name as the format can take it, if it is not too long and nothing else has it.
std::string clean(std::string_view name, Kind kind, const NameRules& rules) {
  std::string cleaned = isPlain(name) ? std::string(name) : toOneLine(name);
  cleaned.erase(cleaned.find_last_not_of(' ') + 1);
  cleaned.erase(0, cleaned.find_first_not_of(' '));
  const bool takesAll = rules.replaced.empty() && rules.takesAllPlanes;
  for (std::size_t i = 0; !takesAll && i < cleaned.size(); ++i) {
    if (rules.replaced.find(cleaned[i]) != std::string_view::npos) {
      cleaned[i] = '_';
    } else if (!rules.takesAllPlanes && static_cast<unsigned char>(cleaned[i]) >= 0xF0) {
      cleaned.replace(i, 4, "_");
    }
  }
  for (std::size_t place = 0; !rules.variableMark.empty() &&
                              (place = cleaned.find(rules.variableMark, place)) != std::string::npos;) {
    cleaned[place + rules.variableMark.size() - 1] = '_';
  }
  const auto [prefix, reserved, fileNameLimit] = getRules(kind, rules);
  if (!prefix.empty() && foldCase(cleaned.substr(0, prefix.size())) == prefix) {
    cleaned.insert(0, "_");
  }
  if (!reserved.empty() && !cleaned.empty() &&
      reserved.find(" " + foldCase(cleaned) + " ") != std::string_view::npos) {
    cleaned += '_';
  }
  if (fileNameLimit != SIZE_MAX && fitFile(cleaned, fileNameLimit).size() != cleaned.size()) {
    cleaned = std::string(fitFile(cleaned, fileNameLimit - kHashSize)) + "_" + hashText(name);
  }
  return cleaned;
}

// The names taken in one scope or in several at a time, and the numbers that made others differ.
class TakenNames {
 public:
  // False where the name is taken in one of the scopes.
  bool take(std::string_view name, std::uint8_t scopes) {
    std::uint8_t& taken = findScopes(foldCase(name));
    if ((taken & scopes) != 0) {
      return false;
    }
    taken |= scopes;
    return true;
  }

  // Whether the name is taken in one of the scopes.
  bool has(std::string_view name, std::uint8_t scopes) { return (findScopes(foldCase(name)) & scopes) != 0; }

  // Takes the name with the smallest number from 2 up that makes it differ. Where there is no room for one,
  // the name ends in its hash before: names that differ in nothing but their ends are not counted together.
  // `take` says whether that worked.
  std::string takeNumbered(std::string_view name, std::uint8_t scopes, const NameRules& rules,
                           const auto& take) {
    std::uint32_t& next = next_[foldCase(name) + static_cast<char>(scopes)];
    for (next = std::max(next, 2U);; ++next) {
      std::string numbered(name);
      numbered.append("_").append(std::to_string(next));
      if (!fits(numbered, rules)) {
        return takeNumbered(shorten(name, name, kNumberRoom, rules), scopes, rules, take);
      }
      if (take(numbered)) {
        return numbered;
      }
    }
  }

 private:
  // Few names, as of most tables' columns, are compared one by one: that is quicker than a map.
  static constexpr std::size_t kFew = 24;
  static constexpr std::size_t kNumberRoom = 11;  // "_4294967295"

  std::uint8_t& findScopes(std::string&& folded) {
    if (scopes_.empty()) {
      for (auto& [name, scopes] : few_) {
        if (name == folded) {
          return scopes;
        }
      }
      if (few_.size() < kFew) {
        return few_.emplace_back(std::move(folded), 0).second;
      }
      scopes_.insert(few_.begin(), few_.end());
    }
    return scopes_[std::move(folded)];
  }

  std::vector<std::pair<std::string, std::uint8_t>> few_;
  std::unordered_map<std::string, std::uint8_t> scopes_;  // of all names, once there are more
  std::unordered_map<std::string, std::uint32_t> next_;
};

}  // namespace

// Names the elements of one set of scopes: first those that can have the names they want.
class NameScopes {
 public:
  NameScopes(ModelNames& names, const NameRules& rules, Utf8Texts& texts)
      : names_(names), rules_(rules), texts_(texts) {}

  // `place` is what the element is called after where it has no name, `table` the one whose indexes it must
  // differ from.
  void want(const VornModelObject& object, Kind kind, std::uint8_t scopes, const VornDataPackage* schema,
            const std::string& place, const VornClass* table = nullptr) {
    const VornString& own = getPreferredName(object, names_.logical_);
    const std::string_view wanted = texts_(own);
    Taken taken{taken_[isHome(schema) ? nullptr : schema],
                (scopes & NameRules::ownIndexes) == 0 ? nullptr : &ownIndexes_[table], scopes};
    std::string cleaned = clean(wanted, kind, rules_);
    if (!fits(cleaned, rules_)) {
      cleaned = shorten(cleaned, wanted, 0, rules_);
      names_.shortened_.insert(&object);
    }
    if (cleaned == wanted && !wanted.empty() && taken.take(wanted)) {
      if (wanted != own.view()) {
        names_.written_[&object] = std::move(cleaned);
      }
    } else if (kind == Kind::key && cleaned.empty()) {
      names_.written_[&object] = "";
    } else {
      if (cleaned.empty()) {
        cleaned = place;
      }
      postponed_.push_back({{&object, std::string(wanted), std::move(cleaned)}, taken});
    }
  }

  // Takes a name that was given elsewhere.
  void keep(std::string_view name) { taken_[nullptr].take(name, NameRules::constraints); }

  void nameTheRest() {
    for (Postponed& element : postponed_) {
      std::string& name = element.change.written;
      if (!element.taken.take(name)) {
        name = element.taken.takeNumbered(name, rules_);
      }
      names_.written_[element.change.object] = name;
      names_.changes_.push_back(std::move(element.change));
    }
    postponed_.clear();
  }

 private:
  // Whether the elements of the schema, which is named already, stand among those without one.
  bool isHome(const VornDataPackage* schema) const {
    return !rules_.hasSchemas || schema == nullptr ||
           (!rules_.homeSchema.empty() && foldCase(names_.get(*schema)) == rules_.homeSchema);
  }

  // The names that an element's must differ from: of its schema, and of its table where there is one.
  struct Taken {
    TakenNames& ofSchema;
    TakenNames* ofTable;
    std::uint8_t scopes;

    bool take(std::string_view name) const {
      if (ofTable != nullptr && ofTable->has(name, scopes)) {
        return false;
      }
      return ofSchema.take(name, scopes & ~NameRules::ownIndexes) &&
             (ofTable == nullptr || ofTable->take(name, scopes));
    }
    std::string takeNumbered(std::string_view name, const NameRules& rules) const {
      return ofSchema.takeNumbered(name, scopes, rules,
                                   [&](std::string_view numbered) { return take(numbered); });
    }
  };
  struct Postponed {
    NameChange change;
    Taken taken;
  };

  ModelNames& names_;
  const NameRules& rules_;
  Utf8Texts& texts_;
  std::unordered_map<const VornDataPackage*, TakenNames> taken_;
  std::unordered_map<const VornClass*, TakenNames> ownIndexes_;
  std::vector<Postponed> postponed_;
};

namespace {

// Of elements that are called `what` and their number where they have no name.
template <class T>
void wantNumbered(NameScopes& scopes, const std::vector<const T*>& elements, Kind kind,
                  const std::string& what) {
  std::size_t number = 0;
  for (const T* element : elements) {
    const VornDataPackage* schema = nullptr;
    if constexpr (std::is_base_of_v<VornClassifier, T>) {
      schema = getSchema(*element);
    }
    scopes.want(*element, kind, NameRules::relations, schema, what + std::to_string(++number));
  }
}

// Whether the foreign key's own index begins with its columns in the order of those that they refer to, which
// is that in which they are written.
bool hasIndexInOrder(const VornForeignKey& key) {
  if (key.index == nullptr || key.candidateKey == nullptr) {
    return false;
  }
  const std::vector<const VornAttribute*> referenced = getKeyColumns(*key.candidateKey);
  std::vector<ColumnPair> pairs = getColumnPairs(key);
  std::ranges::stable_sort(
      pairs, {}, [&](const ColumnPair& pair) { return std::ranges::find(referenced, pair.referenced); });
  return !pairs.empty() && splitPairs(pairs).own == getIndexColumns(*key.index);
}

// A database that wants an index for each foreign key makes one of the key's name, unless there is one.
std::uint8_t getForeignScopes(const VornKey& key, const NameRules& rules) {
  const bool hasIndex = hasIndexInOrder(cast<VornForeignKey>(key));
  return hasIndex ? rules.foreignScopes & ~NameRules::ownIndexes : rules.foreignScopes;
}

void wantSynonymsAndKeys(NameScopes& scopes, const VornClass& table, const NameRules& rules) {
  const VornDataPackage* schema = getSchema(table);
  for (const VornSynonym* synonym : table.synonymCollection) {
    scopes.want(*synonym, Kind::relation, NameRules::relations, schema, "synonym");
  }
  for (const VornKey* key : table.keyCollection) {
    const bool isForeign = key->getElementType() == VornElementType::foreignKey;
    if (!isForeign || rules.foreignScopes != 0) {
      const std::uint8_t wanted = isForeign ? getForeignScopes(*key, rules) : rules.keyScopes;
      scopes.want(*key, Kind::key, wanted, schema, "", &table);
    }
  }
}

void wantIndexes(NameScopes& scopes, const VornClass& table, const NameRules& rules) {
  for (const VornIndex* index : table.indexCollection) {
    if (!isOfCandidateKey(*index)) {  // else the key stands for it
      scopes.want(*index, Kind::index, rules.indexScopes, getSchema(table), "index", &table);
    }
  }
}

}  // namespace

ModelNames::ModelNames(const RelationalModel& model, const NameRules& rules, bool logical, Utf8Texts& texts)
    : logical_(logical) {
  NameScopes schemas(*this, rules, texts);
  wantNumbered(schemas, model.schemas, Kind::schema, "schema_");
  schemas.nameTheRest();

  NameScopes elements(*this, rules, texts);
  wantNumbered(elements, model.tables, Kind::relation, "table_");
  wantNumbered(elements, model.views, Kind::relation, "view_");
  for (const VornClass* table : model.tables) {
    wantSynonymsAndKeys(elements, *table, rules);
  }
  for (const VornClass* table : model.tables) {
    wantIndexes(elements, *table, rules);
  }
  elements.nameTheRest();

  for (const VornClass* table : model.tables) {
    if (rules.foreignScopes == 0) {
      nameForeignKeys(*table, rules, texts);
    }
    NameScopes columns(*this, rules, texts);
    wantNumbered(columns, getColumns(*table), Kind::column, "column_");
    columns.nameTheRest();
  }
}

void ModelNames::nameForeignKeys(const VornClass& table, const NameRules& rules, Utf8Texts& texts) {
  NameScopes constraints(*this, rules, texts);
  const auto forEachKey = [&](VornElementType type, const auto& handle) {
    for (const VornKey* key : table.keyCollection) {
      if (key->getElementType() == type) {
        handle(*key);
      }
    }
  };
  forEachKey(VornElementType::candidateKey, [&](const VornKey& key) { constraints.keep(get(key)); });
  forEachKey(VornElementType::foreignKey, [&](const VornKey& key) {
    constraints.want(key, Kind::key, NameRules::constraints, nullptr, "");
  });
  constraints.nameTheRest();
}

std::string_view ModelNames::get(const VornModelObject& object) const {
  const auto written = written_.find(&object);
  return written == written_.end() ? getPreferredName(object, logical_).view()
                                   : std::string_view(written->second);
}
