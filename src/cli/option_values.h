// How what a user writes becomes the value of a bridge's option.
#pragma once

#include <string>

class VornOptionList;

namespace cli {

// Sets the option to `value`. For an option with choices that may be, in any letter case, the choice itself,
// a word that only one choice has ("origin" for "Link Origin (...)", "2.8.4" for "2.8.4/2.8.5"), or a short
// name of an encoding ("cp850"). Throws UsageError for an option or value that there is not; it calls the
// option `flag` where it was given as one ("--encoding").
void setOption(VornOptionList& options, const std::string& name, const std::string& value,
               const std::string& flag = "");

// The same, given as "NAME=VALUE".
void setOption(VornOptionList& options, const std::string& assignment);

}  // namespace cli
