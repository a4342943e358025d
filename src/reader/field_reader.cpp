#include "reader/field_reader.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "bridge/import_state.h"
#include "bridge/irregularities.h"
#include "bridge/messages.h"

namespace silrdm {

RecordPlace readingPlace;

namespace {

// Names the record whose first bytes are `kept`, a copy of them.
void tellTooLong(std::string kept) {
  char* cursor = kept.data();
  nextField(cursor);
  tell(Irregularity::recordTooLong, Subject(nextField(cursor), ""));
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
      tellTooLong({buffer_, next_});
    }
  }
  void end() { *next_ = '\0'; }

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
  // A file that cannot be read on ends there.
  for (std::string_view ahead = inputFile.peek(); !ahead.empty(); ahead = inputFile.peek()) {
    const auto ordinary =
        static_cast<std::size_t>(std::ranges::find_if_not(ahead, isOrdinary) - ahead.begin());
    const char special = ordinary < ahead.size() ? ahead[ordinary] : ' ';
    const bool isEnd = !inText && (special == control::kCr || special == control::kFs);
    const std::size_t count = std::min(ordinary + 1, ahead.size());
    record.add(ahead.data(), isEnd ? ordinary : count);
    inputFile.skip(count);
    if (isEnd) {
      record.end();
      return special == control::kCr;
    }
    inText = special == control::kStx || (inText && special != control::kEtx);
  }
  record.end();
  return false;
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
  recordsRead[static_cast<std::size_t>(readingPlace.section)] += static_cast<std::size_t>(*buffer != '\0');
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
