// Case files: one import each, and what is to come of it. README.md explains the notation.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/writers/common/output_format.h"
#include "import_runner.h"

struct ExpectedPart {
  int line = 0;           // of the case file
  const char* path = "";  // of the part of the model, as a JSON pointer
  std::string json;       // an excerpt
};

struct ExpectedOutput {
  int line = 0;  // of the case file
  VornOutputFormat format;
  std::vector<std::string> lines;  // without blanks around them; an empty one for any number
};

struct CaseFile {
  std::string title;
  OptionValues options;
  std::string exportBytes;
  bool withProgress = false;          // whether `messages` lists status messages, too
  std::vector<std::string> messages;  // "WARNING CODE", with or without the text
  std::optional<std::string> events;  // a line each
  std::vector<std::string> failure;   // the message, then excerpts of its context
  std::vector<ExpectedPart> parts;
  std::vector<ExpectedOutput> outputs;
};

// Throws std::invalid_argument, which names file and line, for what is not understood.
CaseFile parseCase(const std::string& file, std::string_view text);
