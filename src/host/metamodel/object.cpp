#include "host/metamodel/object.h"

#include <array>
#include <utility>

Vorn_Object::~Vorn_Object() = default;
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
