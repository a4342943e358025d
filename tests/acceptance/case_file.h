// Case files: one import each, and what is to come of it. README.md explains the notation.
#pragma once

#include <rapidjson/document.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "import_runner.h"

struct ExpectedMessages {
  int line = 1;                       // of the case file
  bool withProgress = false;          // whether status messages are listed, too
  std::vector<std::string> messages;  // "WARNING CODE", with or without the text
};

struct ExpectedFailure {
  int line = 1;
  std::string message;
  std::string context;  // an excerpt
};

struct ExpectedPart {
  int line = 1;
  const char* path = "";  // of the part of the model, as a JSON pointer
  rapidjson::Document wanted;
};

struct CaseFile {
  std::string title;
  OptionValues options;
  std::string exportBytes;
  ExpectedMessages messages;
  std::optional<ExpectedFailure> failure;
  std::vector<ExpectedPart> parts;
};

// A case that cannot be understood.
class CaseError : public std::runtime_error {
 public:
  CaseError(int line, const std::string& what) : std::runtime_error(what), line_(line) {}
  int getLine() const { return line_; }

 private:
  int line_;
};

// Throws CaseError.
CaseFile parseCase(std::string_view text);
