// A guess at an export's encoding.
#pragma once

#include <optional>
#include <string>

namespace cli {

struct LikelyEncoding {
  std::string name;    // the choice of the option "Encoding", or ICU's name where there is none
  int confidence = 0;  // of 100, as ICU puts it
};

// What ICU's detector makes of those texts in the file that have bytes above 127: a hint, since few letters
// tell little, and some encodings (those of DOS among them) it never finds. None when no text has such bytes.
std::optional<LikelyEncoding> detectEncoding(const std::string& path);

}  // namespace cli
