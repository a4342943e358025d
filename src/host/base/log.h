// VornLog: takes an import's messages. A log writes the messages up to its level and counts all of them.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "host/base/severity.h"
#include "host/base/text.h"

class VornImportObserver;

class VornLog {
 public:
  VornLog() = default;
  VornLog(const VornLog&) = delete;
  VornLog& operator=(const VornLog&) = delete;
  virtual ~VornLog();

  // The least severe messages that are written; status messages unless set.
  void setLevel(VornSeverity level) { level_ = level; }
  // Whether a message of `severity` would be written: ask before making a costly one.
  bool isEnabled(VornSeverity severity) const { return severity <= level_; }

  void write(VornSeverity severity, const VornString& code, const VornString& text);

  // How texts of the source become UTF-8, once its encoding is known; empty: not at all. A log writes the
  // names in messages and irregularities so.
  using Decoder = std::function<std::string(std::string_view)>;
  void setSourceDecoder(Decoder decoder) { decoder_ = std::move(decoder); }
  std::string decode(std::string_view sourceText) const {
    return decoder_ ? decoder_(sourceText) : std::string(sourceText);
  }

  // Logs a message for developers. Ask isEnabled first if the text is costly.
  void debug(const std::string& text) { write(VornSeverity::debug, "VORN_D0000", VornString(text)); }

  // What follows the import beside its messages; null if nothing does. `observer` must outlive the log.
  void setObserver(VornImportObserver& observer) { observer_ = &observer; }
  VornImportObserver* getObserver() const { return observer_; }

  // The number of messages of `severity` so far, written or not.
  std::size_t getCount(VornSeverity severity) const { return counts_[static_cast<std::size_t>(severity)]; }

 private:
  // Takes one message that the level lets through.
  virtual void put(VornSeverity severity, const VornString& code, const VornString& text) = 0;

  VornSeverity level_ = VornSeverity::status;
  std::array<std::size_t, 6> counts_{};
  Decoder decoder_;
  VornImportObserver* observer_ = nullptr;
};

// A log that writes one line per message to a stream: severity, code, text. The text is made printable: see
// toPrintableLine.
class VornStreamLog : public VornLog {
 public:
  // `stream` must outlive the log.
  explicit VornStreamLog(std::ostream& stream) : stream_(stream) {}

 protected:
  void put(VornSeverity severity, const VornString& code, const VornString& text) override;

 private:
  std::ostream& stream_;
};
