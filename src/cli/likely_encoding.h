// A guess at an export's encoding.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace cli {

struct LikelyEncoding {
  std::string name;         // the choice of the option "Encoding", or ICU's name where there is none
  bool isChoice = false;    // of the option
  int confidence = 0;       // of 100, as ICU puts it
  std::size_t letters = 0;  // bytes above 127 that it was seen by
};

// What ICU's detector makes of those texts in the file that have bytes above 127: a hint, since few letters
// tell little, and some encodings (those of DOS among them) it never finds. None when no text has such bytes.
std::optional<LikelyEncoding> detectEncoding(const std::string& path);

}  // namespace cli
