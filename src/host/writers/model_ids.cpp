#include "host/writers/model_ids.h"

#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"
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
class Numberer final : public VornTraversalOperation, private VornLinkVisitor {
 public:
  explicit Numberer(std::unordered_map<const VornObject*, std::uint32_t>& numbers) : numbers_(numbers) {}

  void process(VornObject& object, void* /*user*/) override { object.visitLinks(*this); }

 private:
  void visitOwned(VornLinkMany& members) override {
    if (members.count() < 2) {
      return;
    }
    std::unordered_map<std::string, std::uint32_t> seen;
    std::string buffer;
    for (auto entry = members.entries(); entry != std::default_sentinel; ++entry) {
      const VornObject* member = (*entry).object;
      const std::uint32_t number = ++seen[std::string(toJsonText(member->getName().view(), buffer))];
      if (number > 1) {
        numbers_[member] = number;
      }
    }
  }
  void visitReferences(VornLinkMany& /*members*/) override {}
  void visitReference(VornLinkOne& /*link*/) override {}

  std::unordered_map<const VornObject*, std::uint32_t>& numbers_;
};

void appendEscaped(std::string& text, std::string_view name) {
  for (const char byte : name) {
    switch (byte) {
      case '%':
        text += "%25";
        break;
      case '/':
        text += "%2F";
        break;
      case '#':
        text += "%23";
        break;
      default:
        text += byte;
    }
  }
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
  Numberer numberer(numbers_);
  model.depthTraversal(numberer, nullptr);
}

void ModelIds::append(std::string& text, const VornObject& object) const {
  text += getPrefix(object.getElementType());
  appendPath(text, object);
}

void ModelIds::appendPath(std::string& text, const VornObject& object) const {
  const VornObject* owner = object.getOwner();
  const bool ownerIsNamed = owner != nullptr && owner->getElementType() != VornElementType::storeModel &&
                            owner->getElementType() != VornElementType::designPackage;
  if (ownerIsNamed) {
    appendPath(text, *owner);
    text += '/';
  }
  std::string buffer;
  appendEscaped(text, toJsonText(object.getName().view(), buffer));
  if (const auto number = numbers_.find(&object); number != numbers_.end()) {
    text += '#';
    text += std::to_string(number->second);
  }
}
