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
  // Converts every text of the model from `encoding` to UTF-8. `encoding` is a choice of the option
  // "Encoding"; any other value means the default. Invalid byte sequences become U+FFFD, and one warning has
  // the number of texts affected. Finds the sources of views again if they depend on the encoding. Leaves the
  // path of a metadata origin unchanged. From then on the log decodes texts (VornLog::setSourceDecoder).
  static void transcodeModel(VornLog& log, VornStoreModel& model, const VornString& encoding);

  // Returns a function that converts texts from `encoding` to UTF-8; empty if texts stay unchanged.
  static std::function<std::string(std::string_view)> makeDecoder(const VornString& encoding);
};
