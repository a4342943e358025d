// VornLog: where an import's messages go. A log writes the messages up to its level and counts all of them.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "host/base/severity.h"
#include "host/base/text.h"

class VornStoreModel;
struct VornIrregularity;
struct VornRecordCount;

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

  // A message for whoever looks for a fault, not for the user. Ask isEnabled first where the text costs.
  void debug(const std::string& text) { write(VornSeverity::debug, "VORN_D0000", VornString(text)); }

  // Whether the two below lead anywhere: ask before gathering what they tell. Unless overridden, they write
  // debug messages.
  virtual bool listensToIrregularities() const { return isEnabled(VornSeverity::debug); }
  // Called where a bridge drops or changes something of its source, before the warning where there is one. A
  // log that does not listen gets only those with a warning.
  virtual void irregular(const VornIrregularity& irregularity);
  // Called once for each section of the source that was read to its end and made into a model.
  virtual void recordsCounted(const VornRecordCount& count);

  // Called with every model that was saved, while it is still there: for whoever wants to tell more of an
  // import than its messages.
  virtual void modelSaved(VornStoreModel& model);

  // How far an import has come: `done` of `total` (0: not known) of what it is at ("reading", in bytes).
  // Called now and then, for whoever wants to show it.
  virtual void progress(const char* what, std::size_t done, std::size_t total);

  // Called after the warning that the bridge does not know the database system that its source names.
  virtual void targetSystemUnknown(const VornString& name, const VornString& version);

  // The number of messages of `severity` so far, written or not.
  std::size_t getCount(VornSeverity severity) const { return counts_[static_cast<std::size_t>(severity)]; }

 private:
  // Takes one message that the level lets through.
  virtual void put(VornSeverity severity, const VornString& code, const VornString& text) = 0;

  VornSeverity level_ = VornSeverity::status;
  std::array<std::size_t, 6> counts_{};
  Decoder decoder_;
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
