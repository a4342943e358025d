#include "assembly/passes.h"

namespace silrdm {

// clang-format off
constexpr std::array<Pass, 4> kPasses = {{
    { 1, "filterBySchema",  "drops what does not belong to the model's schema and target system", filterBySchema},
    { 2, "placeAttributes", "puts every column into its table or view",                           placeAttributes},
    { 6, "orderAttributes", "numbers the columns of every table",                                 orderAttributes},
    {12, "placeInSchemas",  "places tables, synonyms and views into their owners' schemas",       placeInSchemas},
}};
// clang-format on

}  // namespace silrdm
