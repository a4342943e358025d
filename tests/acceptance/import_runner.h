// Runs imports through the plug-in as a host does: loaded as a library, with the options that it offers.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/severity.h"
#include "host/writers/common/output_format.h"

struct Message {
  std::string code;  // with its severity: "WARNING CODE"
  std::string text;

  std::string toLine() const { return code + ' ' + text; }
  // Whether `line` is this message, with or without the text.
  bool isMeantBy(const std::string& line) const { return line == code || line == toLine(); }

  friend bool operator==(const Message&, const Message&) = default;
};

struct ImportResult {
  std::vector<Message> messages;
  std::optional<Message> failure;
  std::string context;                // of the failure
  std::optional<std::string> saved;   // the output; none when it was left as it stood
  std::vector<std::string> problems;  // what must never be, whatever the export
  std::vector<std::string> outputs;   // the model in each further format, behind the messages of its writing
  std::string events;  // at level debug, a line each: KIND SECTION.RECORD 'identifier' 'name' 'value'

  friend bool operator==(const ImportResult&, const ImportResult&) = default;
};

using OptionValues = std::vector<std::pair<std::string, std::string>>;

// The plug-in is loaded by the first call and stays, so that what one import leaves behind meets the next; it
// is unloaded when the process ends, so that leak checkers see what it still holds then. Throws
// std::invalid_argument for an option that the plug-in does not offer.
ImportResult runImport(const std::string& exportBytes, const OptionValues& values = {},
                       VornSeverity level = VornSeverity::status,
                       const std::vector<VornOutputFormat>& formats = {});
