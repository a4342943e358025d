#include "bridge/reader/export_reader.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "bridge/messages/messages.h"

namespace silrdm {

namespace {

// Bytes with no meaning of their own.
constexpr auto isOrdinary = [](char byte) {
  return static_cast<unsigned char>(byte) > control::kFs || byte == control::kTab;
};

// The ordinary bytes at the start of `bytes` and the special byte after them; a blank if there is none.
struct Ahead {
  explicit Ahead(std::string_view bytes)
      : ordinary(static_cast<std::size_t>(std::ranges::find_if_not(bytes, isOrdinary) - bytes.begin())),
        special(ordinary < bytes.size() ? bytes[ordinary] : ' '),
        count(std::min(ordinary + 1, bytes.size())) {}

  std::size_t ordinary;
  char special;
  std::size_t count;  // of both
};

bool isInTextAfter(char special, bool wasInText) {
  return special == control::kStx || (wasInText && special != control::kEtx);
}

// Collects the bytes of a record as long as they fit.
class RecordBuffer {
 public:
  RecordBuffer(char* buffer, std::size_t capacity)
      : buffer_(buffer), next_(buffer), last_(buffer + capacity - 1) {}

  // False if not all of the bytes fit.
  bool add(const char* bytes, std::size_t count) {
    const std::size_t kept = std::min(count, static_cast<std::size_t>(last_ - next_));
    std::memcpy(next_, bytes, kept);
    next_ += kept;
    return kept == count;
  }
  void end() { *next_ = '\0'; }
  std::string_view get() const { return {buffer_, next_}; }

 private:
  char* buffer_;
  char* next_;
  char* last_;
};

}  // namespace

void ExportReader::open(const VornString& path, bool asText) {
  file_ = path;
  if (!file_.open(asText ? VornFile::kRead : VornFile::kRead | VornFile::kBinary)) {
    throw KVB_SRRDM::SILRDM_I_UNABLE_TO_OPEN_INPUT_FILE.makeException({file_.getDisplayName()})
        .withContext(VornString(file_.getError().message()));
  }
}

// Reports a record that is not split into fields yet; `record` may be only its first bytes.
void ExportReader::reportUncut(Irregularity kind, std::string_view record, const VornString& value) {
  std::string fields(record);
  char* cursor = fields.data();
  nextField(cursor);
  reporter_.report(kind, Subject(place_, nextField(cursor), ""), value);
}

// `record` is the start of the record that contains the text, if known.
void ExportReader::reportOpenText(const OpenText& text, std::string_view record) {
  if (reporter_.reportsIrregularities()) {
    place_ = text.record;
    reportUncut(Irregularity::textLeftOpen, record, VornString("byte " + std::to_string(text.offset)));
  }
}

// In a file with CR LF line ends each LF is the first byte of the next record. It is reported once per file.
void ExportReader::reportLineFeed(std::string_view record) {
  if (place_.record > 1 && record.starts_with('\n') && !std::exchange(hasReportedLineFeed_, true)) {
    reportUncut(Irregularity::lineFeed, record);
  }
}

bool ExportReader::readRecord(char* buffer, std::size_t capacity) {
  constexpr std::size_t kNowAndThen = 512;
  ++place_.record;
  place_.offset = file_.getPosition();
  if (place_.record % kNowAndThen == 0) {
    reporter_.getObserver().progress("reading", place_.offset, file_.getSize());
  }
  const bool more = readBytes(buffer, capacity);
  recordCounts_[static_cast<std::size_t>(place_.section)] += static_cast<std::size_t>(length_ > 0);
  if (reporter_.reportsIrregularities()) {
    reportLineFeed({buffer, length_});
    if (*buffer == '\0' && length_ > 0) {
      reporter_.report(Irregularity::nulRecord, Subject(place_, "", ""));
    }
  }
  return more;
}

// Reads the rest of a record. Returns what readRecord returns.
bool ExportReader::readBytes(char* buffer, std::size_t capacity) {
  RecordBuffer record(buffer, capacity);
  isTooLong_ = false;
  const auto endRecord = [&] {
    record.end();
    length_ = record.get().size();
  };
  bool inText = false;
  std::size_t textOffset = 0;
  // A read error counts as end of file.
  for (std::string_view ahead = file_.peek(); !ahead.empty(); ahead = file_.peek()) {
    const Ahead next(ahead);
    const bool isEnd = !inText && (next.special == control::kCr || next.special == control::kFs);
    if (next.special == control::kStx && !inText) {
      textOffset = file_.getPosition() + next.ordinary;
    }
    if (!record.add(ahead.data(), isEnd ? next.ordinary : next.count) && !std::exchange(isTooLong_, true)) {
      reportUncut(Irregularity::recordTooLong, record.get());
    }
    file_.skip(next.count);
    if (isEnd) {
      endRecord();
      return next.special == control::kCr;
    }
    inText = isInTextAfter(next.special, inText);
  }
  endRecord();
  if (inText) {
    openText_ = {place_, textOffset};
    reportOpenText(*openText_, record.get());
  }
  return false;
}

void ExportReader::skipSection(bool allowEndOfFile) {
  std::string_view ahead = file_.peek();
  if (ahead.empty() && !allowEndOfFile) {
    KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT.throwException();
  }
  if (reporter_.reportsIrregularities()) {
    skipReportingTexts();
    return;
  }
  for (; !ahead.empty(); ahead = file_.peek()) {
    const std::size_t end = ahead.find(control::kFs);
    if (end != std::string_view::npos) {
      file_.skip(end + 1);
      return;
    }
    file_.skip(ahead.size());
  }
}

// Skips the rest of the section and reports a text that is still open at its end.
void ExportReader::skipReportingTexts() {
  OpenText text{{place_.section, 1, file_.getPosition()}};
  bool inText = false;
  for (std::string_view ahead = file_.peek(); !ahead.empty(); ahead = file_.peek()) {
    const Ahead next(ahead);
    const std::size_t offset = file_.getPosition() + next.ordinary;
    file_.skip(next.count);
    if (next.special == control::kFs) {
      break;
    }
    if (next.special == control::kCr && !inText) {
      text.record = {place_.section, text.record.record + 1, offset + 1};
    } else if (next.special == control::kStx && !inText) {
      text.offset = offset;
    }
    inText = isInTextAfter(next.special, inText);
  }
  if (inText) {
    reportOpenText(text, "");
  }
}

void ExportReader::skipRest() {
  const Subject subject({static_cast<int>(kSectionCount), 0, file_.getPosition()}, "", "");
  std::size_t ends = 0;
  const auto isExport = [&ends] { return ends + 1 >= kSectionCount; };
  for (std::string_view ahead = file_.peek();
       !ahead.empty() && (reporter_.reportsIrregularities() || !isExport()); ahead = file_.peek()) {
    ends += static_cast<std::size_t>(std::ranges::count(ahead, control::kFs));
    file_.skip(ahead.size());
  }
  if (const std::size_t size = file_.getPosition() - subject.place.offset; size > 0) {
    reporter_.report(isExport() ? Irregularity::furtherExport : Irregularity::furtherBytes, subject,
                     VornString(std::to_string(size) + " bytes"));
  }
}

std::string ExportReader::describeOpenText() const {
  if (!openText_) {
    return "";
  }
  return " inside the text that begins at byte " + std::to_string(openText_->offset) + ", section " +
         std::to_string(openText_->record.section) + ", record " + std::to_string(openText_->record.record);
}

}  // namespace silrdm
