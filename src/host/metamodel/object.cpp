#include "host/metamodel/object.h"

#include <array>

#include "host/base/object_memory.h"

Vorn_Object::~Vorn_Object() = default;

void* Vorn_Object::operator new(std::size_t size) {  // NOLINT(*new-delete-overloads,cert-dcl54-cpp): sized
  static thread_local VornObjectMemory memory;
  return memory.allocate(size);
}

void Vorn_Object::operator delete(void* memory, std::size_t size) noexcept {
  VornObjectMemory::release(memory, size);
}

VornLinkVisitor::~VornLinkVisitor() = default;
VornTextVisitor::~VornTextVisitor() = default;

std::string_view getElementTypeName(VornElementType type) {
  constexpr std::array<std::string_view, 23> names = {"",
                                                      "StoreModel",
                                                      "DesignPackage",
                                                      "DatabaseSchema",
                                                      "BaseType",
                                                      "DerivedType",
                                                      "ClassDiagram",
                                                      "Class",
                                                      "SQLViewEntity",
                                                      "Synonym",
                                                      "Attribute",
                                                      "SQLViewAttribute",
                                                      "Note",
                                                      "Association",
                                                      "AssociationRole",
                                                      "AssociationRoleNameMap",
                                                      "Generalization",
                                                      "GeneralizationRole",
                                                      "Index",
                                                      "IndexMember",
                                                      "MetadataOrigin",
                                                      "CandidateKey",
                                                      "ForeignKey"};
  return names[static_cast<std::size_t>(type)];
}

const VornString& VornObject::getName() const {
  static const VornString none;
  return none;
}

void VornObject::setName(const VornString& /*name*/) {
}

void VornObject::visitLinks(VornLinkVisitor& /*visitor*/) {
}

void VornObject::visitTexts(VornTextVisitor& /*visitor*/) {
}
