#include "bridge/plugin/sections.h"

#include "bridge/loaders/loaders.h"
#include "bridge/reader/field_reader.h"

namespace silrdm {

namespace {

// What the import passes over: a file that ends where the section should begin is malformed.
void skip() {
  skipSection(false);
}

// The same for the last section, which may be missing.
void skipLast() {
  skipSection(true);
}

}  // namespace

// clang-format off
constexpr std::array<Section, 68> kSections = {{
    {1, "", "skip", skip},
    {2, "", "skip", skip},
    {3, "", "skip", skip},
    {4, "specializations", "loadSpecializations", loadSpecializations},
    {5, "", "skip", skip},
    {6, "", "skip", skip},
    {7, "columns", "loadAttributes", loadAttributes},
    {8, "", "skip", skip},
    {9, "", "skip", skip},
    {10, "", "skip", skip},
    {11, "combinations", "loadCombinations", loadCombinations},
    {12, "combination columns", "loadCombinationColumns", loadCombinationColumns},
    {13, "", "skip", skip},
    {14, "common items", "loadCommonItems", loadCommonItems},
    {15, "", "skip", skip},
    {16, "", "skip", skip},
    {17, "relationships", "loadRelationships", loadRelationships},
    {18, "", "skip", skip},
    {19, "", "skip", skip},
    {20, "", "skip", skip},
    {21, "", "skip", skip},
    {22, "", "skip", skip},
    {23, "", "skip", skip},
    {24, "data types", "loadDataTypes", loadDataTypes},
    {25, "", "skip", skip},
    {26, "", "skip", skip},
    {27, "", "skip", skip},
    {28, "roles", "loadRoles", loadRoles},
    {29, "domains", "loadDomains", loadDomains},
    {30, "", "skip", skip},
    {31, "", "skip", skip},
    {32, "", "skip", skip},
    {33, "", "skip", skip},
    {34, "", "skip", skip},
    {35, "", "skip", skip},
    {36, "", "skip", skip},
    {37, "", "skip", skip},
    {38, "", "skip", skip},
    {39, "", "skip", skip},
    {40, "", "skip", skip},
    {41, "", "skip", skip},
    {42, "", "skip", skip},
    {43, "", "skip", skip},
    {44, "", "skip", skip},
    {45, "", "skip", skip},
    {46, "", "skip", skip},
    {47, "", "skip", skip},
    {48, "", "skip", skip},
    {49, "", "skip", skip},
    {50, "", "skip", skip},
    {51, "model", "loadModelHeader", loadModelHeader},
    {52, "", "skip", skip},
    {53, "schema", "loadSchema", loadSchema},
    {54, "", "skip", skip},
    {55, "", "skip", skip},
    {56, "", "skip", skip},
    {57, "", "skip", skip},
    {58, "", "skip", skip},
    {59, "", "skip", skip},
    {60, "entities", "loadEntities", loadEntities},
    {61, "", "skip", skip},
    {62, "", "skip", skip},
    {63, "", "skip", skip},
    {64, "target systems", "loadTargetSystems", loadTargetSystems},
    {65, "users", "loadUsers", loadUsers},
    {66, "", "skip", skip},
    {67, "", "skip", skip},
    {68, "", "skipLast", skipLast},
}};
// clang-format on

}  // namespace silrdm
