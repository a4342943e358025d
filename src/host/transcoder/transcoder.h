// VornTranscoder: turns a model's texts into UTF-8.
#pragma once

#include "host/std/text.h"

class VornLog;
class VornStoreModel;

class VornTranscoder {
 public:
  // Reads every text of the model as `encoding` (a choice of the option "Encoding"; any other value means the
  // default) and puts its UTF-8 in its place. A byte sequence that is not valid becomes U+FFFD; one warning
  // tells how many texts that befell. What views read is found anew where it depends on the encoding. Where a
  // metadata origin's model came from is left as it is.
  static void transcodeModel(VornLog& log, VornStoreModel& model, const VornString& encoding);
};
