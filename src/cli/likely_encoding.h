// A guess at an export's encoding.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/encoding/utf8_tally.h"

namespace cli {

// What the guess is founded on.
enum class EncodingGround {
  asciiOnly,   // no byte is above 127
  tooFew,      // there are such bytes, but too few
  validUtf8,   // they are valid UTF-8, all of them
  detector,    // what ICU's detector says
  unreadable,  // the file can be read only once
};

struct LikelyEncoding {
  EncodingGround ground = EncodingGround::unreadable;
  std::string name;       // the choice of the option "Encoding", or ICU's name where there is none; or empty
  bool isChoice = false;  // of the option
  int confidence = 0;     // of 100
  std::size_t letters = 0;  // bytes above 127 that it was seen by; of UTF-8, characters
};

// Examines the bytes of a file, block by block.
class EncodingEvidence {
 public:
  void look(std::string_view bytes);
  // To be called once, after the last block. Valid UTF-8 counts first. Otherwise ICU's detector looks at
  // texts that have bytes above 127: a hint, since some encodings (those of DOS among them) it never finds.
  LikelyEncoding judge();

 private:
  void collectTexts(std::string_view bytes);

  VornUtf8Tally tally_{VornUtf8Tally::StopAt::firstInvalid};
  std::string texts_;  // a line each
};

}  // namespace cli
