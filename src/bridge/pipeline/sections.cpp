#include "bridge/pipeline/sections.h"

#include "bridge/import/import.h"
#include "bridge/loaders/loaders.h"

namespace silrdm {

namespace {

// Skips a section that the import does not use. It must exist.
void skip(Import& import) {
  import.reader.skipSection(false);
}

// Skips the last section, which may be missing.
void skipLast(Import& import) {
  import.reader.skipSection(true);
}

}  // namespace

// clang-format off
constexpr std::array<Section, kSectionCount> kSections = {{
    {1, "", "skip", skip, nullptr},
    {2, "", "skip", skip, nullptr},
    {3, "", "skip", skip, nullptr},
    {4, "specializations", "loadSpecializations", loadSpecializations, &kSpecializationFields},
    {5, "", "skip", skip, nullptr},
    {6, "", "skip", skip, nullptr},
    {7, "columns", "loadAttributes", loadAttributes, &kAttributeFields},
    {8, "", "skip", skip, nullptr},
    {9, "", "skip", skip, nullptr},
    {10, "", "skip", skip, nullptr},
    {11, "combinations", "loadCombinations", loadCombinations, &kCombinationFields},
    {12, "combination columns", "loadCombinationColumns", loadCombinationColumns, &kCombinationColumnFields},
    {13, "", "skip", skip, nullptr},
    {14, "common items", "loadCommonItems", loadCommonItems, &kCommonItemFields},
    {15, "", "skip", skip, nullptr},
    {16, "", "skip", skip, nullptr},
    {17, "relationships", "loadRelationships", loadRelationships, &kRelationshipFields},
    {18, "", "skip", skip, nullptr},
    {19, "", "skip", skip, nullptr},
    {20, "", "skip", skip, nullptr},
    {21, "", "skip", skip, nullptr},
    {22, "", "skip", skip, nullptr},
    {23, "", "skip", skip, nullptr},
    {24, "data types", "loadDataTypes", loadDataTypes, &kDataTypeFields},
    {25, "", "skip", skip, nullptr},
    {26, "", "skip", skip, nullptr},
    {27, "", "skip", skip, nullptr},
    {28, "roles", "loadRoles", loadRoles, &kRoleFields},
    {29, "domains", "loadDomains", loadDomains, &kDomainFields},
    {30, "", "skip", skip, nullptr},
    {31, "", "skip", skip, nullptr},
    {32, "", "skip", skip, nullptr},
    {33, "", "skip", skip, nullptr},
    {34, "", "skip", skip, nullptr},
    {35, "", "skip", skip, nullptr},
    {36, "", "skip", skip, nullptr},
    {37, "", "skip", skip, nullptr},
    {38, "", "skip", skip, nullptr},
    {39, "", "skip", skip, nullptr},
    {40, "", "skip", skip, nullptr},
    {41, "", "skip", skip, nullptr},
    {42, "", "skip", skip, nullptr},
    {43, "", "skip", skip, nullptr},
    {44, "", "skip", skip, nullptr},
    {45, "", "skip", skip, nullptr},
    {46, "", "skip", skip, nullptr},
    {47, "", "skip", skip, nullptr},
    {48, "", "skip", skip, nullptr},
    {49, "", "skip", skip, nullptr},
    {50, "", "skip", skip, nullptr},
    {51, "model", "loadModelHeader", loadModelHeader, &kModelHeaderFields},
    {52, "", "skip", skip, nullptr},
    {53, "schema", "loadSchema", loadSchema, &kSchemaFields},
    {54, "", "skip", skip, nullptr},
    {55, "", "skip", skip, nullptr},
    {56, "", "skip", skip, nullptr},
    {57, "", "skip", skip, nullptr},
    {58, "", "skip", skip, nullptr},
    {59, "", "skip", skip, nullptr},
    {60, "entities", "loadEntities", loadEntities, &kEntityFields},
    {61, "", "skip", skip, nullptr},
    {62, "", "skip", skip, nullptr},
    {63, "", "skip", skip, nullptr},
    {64, "target systems", "loadTargetSystems", loadTargetSystems, &kTargetSystemFields},
    {65, "users", "loadUsers", loadUsers, &kUserFields},
    {66, "", "skip", skip, nullptr},
    {67, "", "skip", skip, nullptr},
    {68, "", "skipLast", skipLast, nullptr},
}};
// clang-format on

const char* nameOfSection(int position) {
  return kSections[static_cast<std::size_t>(position) - 1].name;
}

}  // namespace silrdm
