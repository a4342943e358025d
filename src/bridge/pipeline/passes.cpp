#include "bridge/pipeline/passes.h"

#include "bridge/passes/passes.h"

namespace silrdm {

// clang-format off
constexpr std::array<Pass, 15> kPasses = {{
    { 1, "filterBySchema",          "drops what does not belong to the model's schema and target system",           filterBySchema},
    { 2, "placeAttributes",         "puts every column into its table or view",                                     placeAttributes},
    { 3, "typeDomains",             "gives every domain its host type",                                             typeDomains},
    { 4, "typeCommonItems",         "gives every common item its host type",                                        typeCommonItems},
    { 5, "typeAttributes",          "gives every column of a table its type",                                       typeAttributes},
    { 6, "orderAttributes",         "numbers the columns of every table",                                           orderAttributes},
    { 7, "collectModelTypes",       "keeps the types that are in use and merges those that are the same",           collectModelTypes},
    { 8, "placeSpecializations",    "gives every generalization its supertype and puts it into the package",        placeSpecializations},
    { 9, "connectRelationships",    "makes associations of relationships, and subtypes of supertype/subtype links", connectRelationships},
    {10, "connectKeys",             "puts every key and its index on its table and ties foreign keys",              connectKeys},
    {11, "connectKeyMembers",       "gives keys and indexes their columns",                                         connectKeyMembers},
    {12, "placeInSchemas",          "places tables, synonyms and views into their owners' schemas",                 placeInSchemas},
    {13, "orderIndexMembers",       "numbers the members of every index",                                           orderIndexMembers},
    {14, "dropEmptyKeys",           "drops keys without columns",                                                   dropEmptyKeys},
    {15, "dropGeneralizationRoles", "drops the roles of supertype/subtype links",                                   dropGeneralizationRoles},
}};
// clang-format on

}  // namespace silrdm
