#include "host/writers/model_ids.h"

#include <algorithm>
#include <array>
#include <forward_list>
#include <utility>
#include <vector>

#include "host/metamodel/store_model.h"
#include "host/std/unicode.h"

namespace {

std::string_view getPrefix(VornElementType type) {
  switch (type) {
    case VornElementType::designPackage:
      return "package:";
    case VornElementType::databaseSchema:
      return "schema:";
    case VornElementType::baseType:
    case VornElementType::derivedType:
      return "type:";
    case VornElementType::classType:
      return "class:";
    case VornElementType::sqlViewEntity:
      return "view:";
    case VornElementType::synonym:
      return "synonym:";
    case VornElementType::attribute:
    case VornElementType::sqlViewAttribute:
      return "attribute:";
    case VornElementType::association:
      return "association:";
    case VornElementType::associationRole:
    case VornElementType::generalizationRole:
      return "role:";
    case VornElementType::generalization:
      return "generalization:";
    case VornElementType::candidateKey:
    case VornElementType::foreignKey:
      return "key:";
    case VornElementType::index:
      return "index:";
    default:
      return "object:";
  }
}

// Numbers the members of each collection that share a name with an earlier member.
class Numberer final : public VornLinkVisitor {
 public:
  explicit Numberer(std::unordered_map<const VornObject*, std::uint32_t>& numbers) : numbers_(numbers) {}

 private:
  struct Named {
    const VornObject* object;
    std::string_view name;
  };

  void visitOwned(VornLinkMany& members) override {
    if (members.count() < 2) {
      return;
    }
    std::vector<Named> named;
    named.reserve(members.count());
    converted_.clear();
    for (auto entry = members.entries(); entry != std::default_sentinel; ++entry) {
      named.push_back({(*entry).object, nameOf(*(*entry).object)});
    }
    if (named.size() <= kFew) {
      numberFew(named);
    } else {
      numberMany(named);
    }
  }
  void visitReferences(VornLinkMany& /*members*/) override {}
  void visitReference(VornLinkOne& /*link*/) override {}

  // As it is written.
  std::string_view nameOf(const VornObject& member) {
    std::string buffer;
    const std::string_view name = toJsonText(member.getName().view(), buffer);
    return name.data() == buffer.data() ? converted_.emplace_front(std::move(buffer)) : name;
  }

  void numberFew(const std::vector<Named>& named) {
    for (auto member = named.begin(); member != named.end(); ++member) {
      const auto before = std::count_if(named.begin(), member,
                                        [&](const Named& sibling) { return sibling.name == member->name; });
      keep(*member, static_cast<std::uint32_t>(before) + 1);
    }
  }
  void numberMany(const std::vector<Named>& named) {
    std::unordered_map<std::string_view, std::uint32_t> seen;
    for (const Named& member : named) {
      keep(member, ++seen[member.name]);
    }
  }
  void keep(const Named& member, std::uint32_t number) {
    if (number > 1) {
      numbers_[member.object] = number;
    }
  }

  // Up to here it costs less to compare each with each.
  static constexpr std::size_t kFew = 24;

  std::unordered_map<const VornObject*, std::uint32_t>& numbers_;
  std::forward_list<std::string> converted_;  // the names that are not written as they stand
};

constexpr bool isReserved(char byte) {
  return byte == '%' || byte == '/' || byte == '#';
}

// By byte, whether it stands in an id, and in JSON, as it is.
constexpr auto kPlain = [] {
  std::array<bool, 256> plain{};
  for (char byte = ' '; byte < 0x7F; ++byte) {
    plain[static_cast<unsigned char>(byte)] = !isReserved(byte) && byte != '"' && byte != '\\';
  }
  return plain;
}();

void appendEscaped(std::string& text, std::string_view name) {
  while (!name.empty()) {
    const auto* const reserved = std::ranges::find_if(name, isReserved);
    const auto count = static_cast<std::size_t>(reserved - name.begin());
    text += name.substr(0, count);
    if (count == name.size()) {
      return;
    }
    text += *reserved == '%' ? "%25" : *reserved == '/' ? "%2F" : "%23";
    name.remove_prefix(count + 1);
  }
}

// The owner that an object's id names, or null.
VornObject* namedOwner(const VornObject& object) {
  VornObject* owner = object.getOwner();
  const bool isNamed = owner != nullptr && owner->getElementType() != VornElementType::storeModel &&
                       owner->getElementType() != VornElementType::designPackage;
  return isNamed ? owner : nullptr;
}

}  // namespace

std::string_view toJsonText(std::string_view text, std::string& buffer) {
  if (isUtf8(text)) {
    return text;
  }
  buffer = latin1ToUtf8(text);
  return buffer;
}

ModelIds::ModelIds(VornStoreModel& model) {
  numberMembers(model);
  for (VornDesignPackage* package : model.designPackageCollection) {
    numberMembers(*package);
  }
}

void ModelIds::numberMembers(VornObject& owner) const {
  if (numbered_.insert(&owner).second) {
    Numberer numberer(numbers_);
    owner.visitLinks(numberer);
  }
}

bool ModelIds::append(std::string& text, const VornObject& object) const {
  text += getPrefix(object.getElementType());
  VornObject* const owner = namedOwner(object);
  if (owner == nullptr) {
    return appendName(text, object);
  }
  if (owner != lastOwner_) {
    numberMembers(*owner);
    lastPath_.clear();
    isLastPathPlain_ = appendPath(lastPath_, *owner);
    lastPath_ += '/';
    lastOwner_ = owner;
  }
  text += lastPath_;
  return appendName(text, object) && isLastPathPlain_;
}

bool ModelIds::appendPath(std::string& text, const VornObject& object) const {
  bool isPlain = true;
  if (VornObject* owner = namedOwner(object)) {
    numberMembers(*owner);
    isPlain = appendPath(text, *owner);
    text += '/';
  }
  return appendName(text, object) && isPlain;
}

bool ModelIds::appendName(std::string& text, const VornObject& object) const {
  const std::string_view name = object.getName().view();
  const bool isPlain =
      std::ranges::all_of(name, [](char byte) { return kPlain[static_cast<unsigned char>(byte)]; });
  if (isPlain) {
    text += name;
  } else {
    std::string buffer;
    appendEscaped(text, toJsonText(name, buffer));
  }
  if (const auto number = numbers_.find(&object); number != numbers_.end()) {
    text += '#';
    text += std::to_string(number->second);
  }
  return isPlain;
}
