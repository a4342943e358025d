#include "assembly/passes.h"

namespace silrdm {

// clang-format off
constexpr std::array<Pass, 7> kPasses = {{
    { 1, "filterBySchema",          "drops what does not belong to the model's schema and target system",           filterBySchema},
    { 2, "placeAttributes",         "puts every column into its table or view",                                     placeAttributes},
    { 6, "orderAttributes",         "numbers the columns of every table",                                           orderAttributes},
    { 8, "placeSpecializations",    "gives every generalization its supertype and puts it into the package",        placeSpecializations},
    { 9, "connectRelationships",    "makes associations of relationships, and subtypes of supertype/subtype links", connectRelationships},
    {12, "placeInSchemas",          "places tables, synonyms and views into their owners' schemas",                 placeInSchemas},
    {15, "dropGeneralizationRoles", "drops the roles of supertype/subtype links",                                   dropGeneralizationRoles},
}};
// clang-format on

}  // namespace silrdm
