// Parsed elements keep what a record says beyond the host object made from it, above all the identifiers of
// other records. Loaders create them; assembly passes resolve them.
//
// An element is attached to the `generalPointer` of the host object made from the same record. A registry
// holds elements of records that become no host object. An element owns only its texts.
#pragma once

#include <cstdint>
#include <memory>

#include "bridge/elements/record_place.h"
#include "host/base/containers.h"
#include "host/base/text.h"
#include "host/metamodel/object.h"

class VornIndex;
class VornKey;

namespace silrdm {

// The base of all elements. In every section the identifier is field 2.
class SILRDMElement {
 public:
  SILRDMElement(const char* recordIdentifier, const RecordPlace& recordPlace)
      : identifier(recordIdentifier), place(recordPlace) {}
  SILRDMElement(const SILRDMElement&) = delete;
  SILRDMElement& operator=(const SILRDMElement&) = delete;
  virtual ~SILRDMElement();

  // Elements outlive neither their import nor its memory: see VornObjectMemory.
  static void* operator new(std::size_t size);  // NOLINT(*new-delete-overloads,cert-dcl54-cpp): sized delete
  static void operator delete(void* memory, std::size_t size) noexcept;

  VornString identifier;
  RecordPlace place;  // of the record
};

class SILRDMEntity final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString schemaId;
  VornString userId;  // the user who owns the table or view
};

class SILRDMAttribute final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString schemaId;
  VornString entityId;
  VornString domainId;
  std::int32_t sequence = 0;  // the column's position number in its table
  std::int32_t length = 0;    // 0: the domain's
  std::int32_t scale = 0;     // 0: the domain's
};

class SILRDMDomain final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString targetSystemId;
  VornString dataTypeId;
};

// A common item: a named type based on a domain.
class SILRDMUserDomain final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString domainId;
};

class SILRDMDataType final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString targetSystemId;
  VornString nativeTypeName;  // as the target system writes it
  VornString lengthText;
};

class SILRDMSchema final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString targetSystemId;  // the target system chosen for the model
};

class SILRDMUser final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornStringHashSet placedNames{15};  // the names already placed in the user's schema
};

// A target system as the export names it, for the search in the catalogue.
class SILRDMTargetSystem final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString systemName;
  VornString systemVersion;
};

class SILRDMAssociation final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString schemaId;
};

class SILRDMAssociationRole final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString schemaId;
  VornString field3;  // kept as read
  VornString entityId;
  VornString relationshipId;
  VornString specializationId;  // set on the two roles of a supertype/subtype link
  VornString oppositeRoleId;
  bool paired = false;
  bool inGeneralization = false;
};

class SILRDMGeneralization final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString schemaId;
  VornString supertypeEntityId;
};

class SILRDMCombination final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString schemaId;
  VornString entityId;
  VornString referencedCombinationId;
  VornString roleId;
  bool primary = false;
};

class SILRDMCombinationColumn final : public SILRDMElement {
 public:
  using SILRDMElement::SILRDMElement;

  VornString schemaId;
  VornString combinationId;
  VornString attributeId;
  VornString referencedColumnId;
  std::int32_t sequence = 0;
  bool ascending = false;
};

// Returns the element attached to a host object, or null. The host marks its own objects with the value 1,
// which is not a pointer.
inline SILRDMElement* elementOf(const Vorn_Object& object) {
  constexpr std::uintptr_t kHostMark = 1;
  void* const pointer = object.generalPointer;
  return reinterpret_cast<std::uintptr_t>(pointer) > kHostMark ? static_cast<SILRDMElement*>(pointer)
                                                               : nullptr;
}
// The same for an object whose class implies the element's class.
template <class Element>
Element* elementOf(const Vorn_Object& object) {
  return static_cast<Element*>(elementOf(object));
}

// Attaches an element to an object that has none.
inline void hang(std::unique_ptr<SILRDMElement> element, Vorn_Object& object) {
  object.generalPointer = element.release();
}

// Ties an index to a key that has none and destroys it with itself, until a table owns them.
void hang(std::unique_ptr<VornIndex> index, VornKey& key);

// Detaches and returns the element of an object; null if it has none.
inline std::unique_ptr<SILRDMElement> takeElement(Vorn_Object& object) {
  std::unique_ptr<SILRDMElement> element(elementOf(object));
  object.generalPointer = nullptr;
  return element;
}

// Destroys a host object after its element. The index of a key is destroyed as well, with the elements of its
// members.
struct ElementDestroyer {
  void operator()(VornObject* object) const;
};

// A host object with its element that the model does not own.
template <class Object>
using Parsed = std::unique_ptr<Object, ElementDestroyer>;

}  // namespace silrdm
