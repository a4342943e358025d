// VornTranscoder: turns a model's texts into UTF-8.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/base/text.h"

class VornLog;
class VornStoreModel;

class VornTranscoder {
 public:
  // Reads every text of the model as `encoding` (a choice of the option "Encoding"; any other value means the
  // default) and puts its UTF-8 in its place. A byte sequence that is not valid becomes U+FFFD; one warning
  // tells how many texts that befell. What views read is found anew where it depends on the encoding. Where a
  // metadata origin's model came from is left as it is. Texts that the log gets from then on are UTF-8 for it
  // (VornLog::setSourceDecoder).
  static void transcodeModel(VornLog& log, VornStoreModel& model, const VornString& encoding);

  // What turns a text that is read as `encoding` (as above) into UTF-8; empty for texts that are left as they
  // are.
  static std::function<std::string(std::string_view)> makeDecoder(const VornString& encoding);
};
