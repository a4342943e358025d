// Runs imports through the plug-in as a host does: loaded as a library, with the options that it offers.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/std/severity.h"

class VornImportBridgeDllInterface;

struct Message {
  VornSeverity severity = VornSeverity::status;
  std::string code;
  std::string text;

  friend bool operator==(const Message&, const Message&) = default;
};

// "WARNING CODE text"
std::string toLine(const Message& message);
// Whether `wanted` is the message's line, or that line without the text.
bool isMeant(const std::string& wanted, const Message& message);

struct ImportFailure {
  Message message;
  std::string context;

  friend bool operator==(const ImportFailure&, const ImportFailure&) = default;
};

struct ImportResult {
  std::vector<Message> messages;
  std::optional<ImportFailure> failure;
  std::optional<std::string> saved;   // the output; none when it was left as it stood
  std::vector<std::string> problems;  // what must never be, whatever the export

  friend bool operator==(const ImportResult&, const ImportResult&) = default;
};

using OptionValues = std::vector<std::pair<std::string, std::string>>;

// The plug-in's object. The plug-in is loaded by the first call and stays, so that what one import leaves
// behind meets the next; it is unloaded when the process ends, so that leak checkers see what it still holds
// then. Throws std::runtime_error when it cannot be loaded.
VornImportBridgeDllInterface& getBridge();

// One after the other, in a temporary folder that goes with this object.
class ImportRunner {
 public:
  ImportRunner();
  ImportRunner(const ImportRunner&) = delete;
  ImportRunner& operator=(const ImportRunner&) = delete;
  ~ImportRunner();

  // Throws std::invalid_argument for a value of an option that the plug-in does not offer.
  ImportResult run(const std::string& exportBytes, const OptionValues& values = {},
                   VornSeverity level = VornSeverity::status);

 private:
  std::filesystem::path folder_;
};

std::string readFile(const std::filesystem::path& path);
