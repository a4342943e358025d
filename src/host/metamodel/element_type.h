// The kinds of objects in a model, and their names.
#pragma once

#include <string_view>

enum class VornElementType {
  storeModel = 1,
  designPackage = 2,
  databaseSchema = 3,
  baseType = 4,
  derivedType = 5,
  classDiagram = 6,
  classType = 7,
  sqlViewEntity = 8,
  synonym = 9,
  attribute = 10,
  sqlViewAttribute = 11,
  note = 12,
  association = 13,
  associationRole = 14,
  associationRoleNameMap = 15,
  generalization = 16,
  generalizationRole = 17,
  index = 18,
  indexMember = 19,
  metadataOrigin = 20,
  candidateKey = 21,
  foreignKey = 22,
};

// The class name without its prefix: "Class", "SQLViewEntity", "ForeignKey".
std::string_view getElementTypeName(VornElementType type);
