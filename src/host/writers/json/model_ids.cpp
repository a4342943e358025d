#include "host/writers/json/model_ids.h"

#include <algorithm>
#include <array>
#include <forward_list>
#include <utility>

#include "host/base/unicode.h"
#include "host/metamodel/store_model.h"
#include "host/writers/common/texts.h"

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

// A name is long when JSON would have more bytes of it than this.
constexpr std::size_t kLongest = 64;
constexpr std::size_t kBeginning = 40;

// How many bytes of an id in JSON the byte becomes.
std::size_t weigh(char byte) {
  return isReserved(byte)                         ? 3
         : byte == '"' || byte == '\\'            ? 2
         : static_cast<unsigned char>(byte) < ' ' ? 6
                                                  : 1;
}

// How much of UTF-8 text fits into that many bytes of an id.
std::string_view cutToWeight(std::string_view utf8, std::size_t most) {
  std::size_t weight = 0;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    weight += weigh(utf8[i]);
    if (weight > most) {
      return cutUtf8(utf8, i);
    }
  }
  return utf8;
}

// Up to here it costs less to compare siblings with each other than to remember them.
constexpr std::size_t kFew = 24;

// The owner that an object's id names, or null.
const VornObject* namedOwner(const VornObject& object) {
  const VornObject* owner = object.getOwner();
  const bool isNamed = owner != nullptr && owner->getElementType() != VornElementType::storeModel &&
                       owner->getElementType() != VornElementType::designPackage;
  return isNamed ? owner : nullptr;
}

}  // namespace

ModelIds::ModelIds(const VornStoreModel& model) {
  for (const VornDesignPackage* package : model.designPackageCollection) {
    numberMembers(package->elementCollection);
  }
}

bool ModelIds::append(std::string& text, const VornObject& object) const {
  text += getPrefix(object.getElementType());
  const VornObject* const owner = namedOwner(object);
  if (owner == nullptr) {
    return appendName(text, object);
  }
  if (owner != lastOwner_) {
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
  if (const VornObject* owner = namedOwner(object)) {
    isPlain = appendPath(text, *owner);
    text += '/';
  }
  return appendName(text, object) && isPlain;
}

bool ModelIds::appendName(std::string& text, const VornObject& object) const {
  const std::string_view name = object.getName().view();
  bool isPlain = name.size() <= kLongest && std::ranges::all_of(name, [](char byte) {
                   return kPlain[static_cast<unsigned char>(byte)];
                 });
  if (isPlain) {
    text += name;
  } else if (const std::string_view brief = shortened(object); !brief.empty()) {
    text += brief;
  } else {
    std::string buffer;
    appendEscaped(text, asUtf8(name, buffer));
  }
  if (const std::uint32_t number = numberOf(object, isPlain); number > 1) {
    text += '#';
    text += std::to_string(number);
  }
  return isPlain;
}

std::string_view ModelIds::shortened(const VornObject& object) const {
  constexpr std::size_t kMostOfOneByte = 6;
  const std::string_view name = object.getName().view();
  if (name.size() * kMostOfOneByte <= kLongest) {
    return {};
  }
  const auto known = shortened_.find(&object);
  if (known != shortened_.end()) {
    return known->second;
  }
  std::string buffer;
  const std::string_view utf8 = asUtf8(name, buffer);
  if (cutToWeight(utf8, kLongest).size() == utf8.size()) {
    return {};
  }
  std::string& brief = shortened_[&object];
  appendEscaped(brief, cutToWeight(utf8, kBeginning));
  return brief.append("%~").append(hashText(utf8));
}

std::string_view ModelIds::identity(const VornObject& object, std::string& buffer) const {
  const std::string_view brief = shortened(object);
  return brief.empty() ? asUtf8(object.getName().view(), buffer) : brief;
}

std::uint32_t ModelIds::numberOf(const VornObject& object, bool isPlain) const {
  // The owner's end of the link to the owner is the collection.
  const auto* siblings = static_cast<const VornLinkMany*>(object.ownerEnd().getEntry().twin.end);
  if (siblings == nullptr) {
    return 1;
  }
  if (siblings->count() > kFew) {
    numberMembers(*siblings);
    const auto number = numbers_.find(&object);
    return number != numbers_.end() ? number->second : 1;
  }
  std::string buffer;
  const std::string_view name = identity(object, buffer);
  std::uint32_t number = 1;
  for (auto entry = siblings->entries(); (*entry).object != &object; ++entry) {
    // What is plain is written as it stands, and so is nothing else.
    std::string siblingBuffer;
    const VornObject& sibling = *(*entry).object;
    number += static_cast<std::uint32_t>(
        (isPlain ? sibling.getName().view() : identity(sibling, siblingBuffer)) == name);
  }
  return number;
}

void ModelIds::numberMembers(const VornLinkMany& members) const {
  if (!numbered_.insert(&members).second) {
    return;
  }
  std::unordered_map<std::string_view, std::uint32_t> seen;
  std::forward_list<std::string> converted;  // the names that are not written as they stand
  for (auto entry = members.entries(); entry != std::default_sentinel; ++entry) {
    const VornObject& member = *(*entry).object;
    std::string buffer;
    std::string_view name = identity(member, buffer);
    if (!buffer.empty() && name.data() == buffer.data()) {
      name = converted.emplace_front(std::move(buffer));
    }
    if (const std::uint32_t number = ++seen[name]; number > 1) {
      numbers_[&member] = number;
    }
  }
}
