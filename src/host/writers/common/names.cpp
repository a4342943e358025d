#include "host/writers/common/names.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "host/std/unicode.h"
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

bool fits(std::string_view name, const NameRules& rules) {
  return fit(name, rules.limit, rules.unit).size() == name.size();
}

// `name` cut so that `room` is left behind it, and ending in the hash of `whole`.
std::string shorten(std::string_view name, std::string_view whole, std::size_t room, const NameRules& rules) {
  const std::string ending = "_" + hashText(whole);
  return std::string(fit(name, rules.limit - room - ending.size(), rules.unit)) + ending;
}

enum class Kind : std::uint8_t { schema, relation, column, key };  // indexes go with the relations

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
  const std::string_view prefix = kind == Kind::schema     ? rules.schemaPrefix
                                  : kind == Kind::relation ? rules.relationPrefix
                                                           : std::string_view();
  if (!prefix.empty() && foldCase(cleaned.substr(0, prefix.size())) == prefix) {
    cleaned.insert(0, "_");
  }
  if (kind == Kind::column && !rules.columns.empty() && !cleaned.empty() &&
      rules.columns.find(" " + foldCase(cleaned) + " ") != std::string_view::npos) {
    cleaned += '_';
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

  // Takes the name with the smallest number from 2 up that makes it differ. Where there is no room for one,
  // the name ends in its hash before: names that differ in nothing but their ends are not counted together.
  std::string takeNumbered(std::string_view name, std::uint8_t scopes, const NameRules& rules) {
    std::uint32_t& next = next_[foldCase(name) + static_cast<char>(scopes)];
    for (next = std::max(next, 2U);; ++next) {
      std::string numbered(name);
      numbered.append("_").append(std::to_string(next));
      if (!fits(numbered, rules)) {
        return takeNumbered(shorten(name, name, kNumberRoom, rules), scopes, rules);
      }
      if (take(numbered, scopes)) {
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

  // `place` is what the element is called after where it has no name.
  void want(const VornModelObject& object, Kind kind, std::uint8_t scopes, const VornDataPackage* schema,
            const std::string& place) {
    const VornString& own = getPreferredName(object, names_.logical_);
    const std::string_view wanted = texts_(own);
    TakenNames& taken = taken_[isHome(schema) ? nullptr : schema];
    std::string cleaned = clean(wanted, kind, rules_);
    if (!fits(cleaned, rules_)) {
      cleaned = shorten(cleaned, wanted, 0, rules_);
      names_.shortened_.insert(&object);
    }
    if (cleaned == wanted && !wanted.empty() && taken.take(wanted, scopes)) {
      if (wanted != own.view()) {
        names_.written_[&object] = std::move(cleaned);
      }
    } else if (kind == Kind::key && cleaned.empty()) {
      names_.written_[&object] = "";
    } else {
      if (cleaned.empty()) {
        cleaned = place;
      }
      postponed_.push_back({{&object, std::string(wanted), std::move(cleaned)}, scopes, &taken});
    }
  }

  // Takes a name that was given elsewhere.
  void keep(std::string_view name) { taken_[nullptr].take(name, NameRules::constraints); }

  void nameTheRest() {
    for (Postponed& element : postponed_) {
      std::string& name = element.change.written;
      if (!element.taken->take(name, element.scopes)) {
        name = element.taken->takeNumbered(name, element.scopes, rules_);
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

  struct Postponed {
    NameChange change;
    std::uint8_t scopes;
    TakenNames* taken;
  };

  ModelNames& names_;
  const NameRules& rules_;
  Utf8Texts& texts_;
  std::unordered_map<const VornDataPackage*, TakenNames> taken_;
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

void wantSynonymsAndKeys(NameScopes& scopes, const VornClass& table, const NameRules& rules) {
  const VornDataPackage* schema = getSchema(table);
  for (const VornSynonym* synonym : table.synonymCollection) {
    scopes.want(*synonym, Kind::relation, NameRules::relations, schema, "synonym");
  }
  for (const VornKey* key : table.keyCollection) {
    const bool isForeign = key->getElementType() == VornElementType::foreignKey;
    if (!isForeign || rules.foreignScopes != 0) {
      scopes.want(*key, Kind::key, isForeign ? rules.foreignScopes : rules.keyScopes, schema, "");
    }
  }
}

void wantIndexes(NameScopes& scopes, const VornClass& table, const NameRules& rules) {
  for (const VornIndex* index : table.indexCollection) {
    if (!isOfCandidateKey(*index)) {  // else the key stands for it
      scopes.want(*index, Kind::relation, rules.indexScopes, getSchema(table), "index");
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
