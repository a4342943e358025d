#include "bridge/reader/field_reader.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "bridge/import/import_state.h"
#include "bridge/messages/messages.h"
#include "bridge/reporting/reports.h"

namespace silrdm {

RecordPlace readingPlace;
BufferedRecord bufferedRecord;
std::optional<OpenText> openText;
bool hasReportedLineFeed = false;

namespace {

// Tells of the record whose first bytes are `kept`, a copy of them.
void tellOfUncut(Irregularity kind, std::string kept, const VornString& value = {}) {
  char* cursor = kept.data();
  nextField(cursor);
  tell(kind, Subject(nextField(cursor), ""), value);
}

// `kept` is the start of the record in which it was opened, as far as there is any.
void reportOpenText(const OpenText& text, std::string_view kept) {
  if (isListening) {
    readingPlace = text.record;
    tellOfUncut(Irregularity::textLeftOpen, std::string(kept),
                VornString("byte " + std::to_string(text.offset)));
  }
}

// The bytes that a record consists of; the others have to be looked at.
constexpr auto isOrdinary = [](char byte) {
  return static_cast<unsigned char>(byte) > control::kFs || byte == control::kTab;
};

// Takes what is read, as far as there is room for it.
class RecordBuffer {
 public:
  RecordBuffer(char* buffer, std::size_t capacity)
      : buffer_(buffer), next_(buffer), last_(buffer + capacity - 1) {}

  void add(const char* bytes, std::size_t count) {
    const std::size_t kept = std::min(count, static_cast<std::size_t>(last_ - next_));
    std::memcpy(next_, bytes, kept);
    next_ += kept;
    if (kept < count && !std::exchange(isTooLong_, true)) {
      tellOfUncut(Irregularity::recordTooLong, {buffer_, next_});
    }
  }
  void end() {
    *next_ = '\0';
    bufferedRecord = {static_cast<std::size_t>(next_ - buffer_), isTooLong_};
  }

 private:
  char* buffer_;
  char* next_;
  char* last_;
  bool isTooLong_ = false;
};

// Reads the rest of a record. What it returns is what readRecord does.
bool readBytes(char* buffer, std::size_t capacity) {
  RecordBuffer record(buffer, capacity);
  bool inText = false;
  std::size_t textOffset = 0;
  // A file that cannot be read on ends there.
  for (std::string_view ahead = inputFile.peek(); !ahead.empty(); ahead = inputFile.peek()) {
    const auto ordinary =
        static_cast<std::size_t>(std::ranges::find_if_not(ahead, isOrdinary) - ahead.begin());
    const char special = ordinary < ahead.size() ? ahead[ordinary] : ' ';
    const bool isEnd = !inText && (special == control::kCr || special == control::kFs);
    const std::size_t count = std::min(ordinary + 1, ahead.size());
    if (special == control::kStx && !inText) {
      textOffset = inputFile.getPosition() + ordinary;
    }
    record.add(ahead.data(), isEnd ? ordinary : count);
    inputFile.skip(count);
    if (isEnd) {
      record.end();
      return special == control::kCr;
    }
    inText = special == control::kStx || (inText && special != control::kEtx);
  }
  record.end();
  if (inText) {
    openText = {readingPlace, textOffset};
    reportOpenText(*openText, {buffer, bufferedRecord.length});
  }
  return false;
}

// In a file with CR LF line ends the LF is the first byte of the next record: reported once.
void reportLineFeed(const char* buffer) {
  if (readingPlace.record > 1 && *buffer == '\n' && !std::exchange(hasReportedLineFeed, true)) {
    tellOfUncut(Irregularity::lineFeed, {buffer, bufferedRecord.length});
  }
}

// Reads past the rest of the section as skipSection does, and reports a text that is open where it ends.
void skipWatchingTexts() {
  OpenText text{{readingPlace.section, 1, inputFile.getPosition()}};
  bool inText = false;
  for (std::string_view ahead = inputFile.peek(); !ahead.empty(); ahead = inputFile.peek()) {
    const auto ordinary =
        static_cast<std::size_t>(std::ranges::find_if_not(ahead, isOrdinary) - ahead.begin());
    const char special = ordinary < ahead.size() ? ahead[ordinary] : ' ';
    const std::size_t offset = inputFile.getPosition() + ordinary;
    inputFile.skip(std::min(ordinary + 1, ahead.size()));
    if (special == control::kFs) {
      break;
    }
    if (special == control::kCr && !inText) {
      text.record = {readingPlace.section, text.record.record + 1, offset + 1};
    } else if (special == control::kStx && !inText) {
      text.offset = offset;
    }
    inText = special == control::kStx || (inText && special != control::kEtx);
  }
  if (inText) {
    reportOpenText(text, "");
  }
}

}  // namespace

bool readRecord(char* buffer, std::size_t capacity) {
  constexpr std::size_t kNowAndThen = 512;
  ++readingPlace.record;
  readingPlace.offset = inputFile.getPosition();
  if (readingPlace.record % kNowAndThen == 0) {
    importLog->progress("reading", readingPlace.offset, inputFile.getSize());
  }
  const bool more = readBytes(buffer, capacity);
  recordsRead[static_cast<std::size_t>(readingPlace.section)] +=
      static_cast<std::size_t>(bufferedRecord.length > 0);
  if (isListening) {
    reportLineFeed(buffer);
    if (*buffer == '\0' && bufferedRecord.length > 0) {
      tell(Irregularity::nulRecord, Subject("", ""));
    }
  }
  return more;
}

const char* nextField(char*& cursor) {
  const char* value = cursor;
  for (;; ++cursor) {
    if (static_cast<unsigned char>(*cursor) > control::kTab) {
      continue;
    }
    switch (*cursor) {
      case '\0':
        return value;
      case control::kTab:
        *cursor++ = '\0';
        return value;
      case control::kStx:
        value = cursor + 1;
        break;
      case control::kEtx:
        *cursor = '\0';
        break;
      default:
        break;
    }
  }
}

void skipSection(bool allowEndOfFile) {
  std::string_view ahead = inputFile.peek();
  if (ahead.empty() && !allowEndOfFile) {
    KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT.throwException();
  }
  if (isListening) {
    skipWatchingTexts();
    return;
  }
  for (; !ahead.empty(); ahead = inputFile.peek()) {
    const std::size_t end = ahead.find(control::kFs);
    if (end != std::string_view::npos) {
      inputFile.skip(end + 1);
      return;
    }
    inputFile.skip(ahead.size());
  }
}

}  // namespace silrdm
