#include "assembly/passes.h"

namespace silrdm {

// clang-format off
constexpr std::array<Pass, 8> kPasses = {{
    { 1, "filterBySchema",    "drops what does not belong to the model's schema and target system", filterBySchema},
    { 2, "placeAttributes",   "puts every column into its table or view",                           placeAttributes},
    { 3, "typeDomains",       "gives every domain its host type",                                   typeDomains},
    { 4, "typeCommonItems",   "gives every common item its host type",                              typeCommonItems},
    { 5, "typeAttributes",    "gives every column of a table its type",                             typeAttributes},
    { 6, "orderAttributes",   "numbers the columns of every table",                                 orderAttributes},
    { 7, "collectModelTypes", "keeps the types that are in use and merges those that are the same", collectModelTypes},
    {12, "placeInSchemas",    "places tables, synonyms and views into their owners' schemas",       placeInSchemas},
}};
// clang-format on

}  // namespace silrdm
