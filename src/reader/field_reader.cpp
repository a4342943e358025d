#include "reader/field_reader.h"

#include <string>

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

// Reads the rest of a record. What it returns is what readRecord does.
bool readBytes(char* buffer, std::size_t capacity) {
  bool inText = false;
  bool tooLong = false;
  char* place = buffer;
  const char* const last = buffer + capacity - 1;
  // A file that cannot be read on ends there.
  VornFile::ByteReader input(inputFile);
  for (char byte = 0; input.read(byte);) {
    switch (byte) {
      case control::kCr:
      case control::kFs:
        if (!inText) {
          *place = '\0';
          return byte == control::kCr;
        }
        break;
      case control::kStx:
        inText = true;
        break;
      case control::kEtx:
        inText = false;
        break;
      default:
        break;
    }
    if (place != last) {
      *place++ = byte;
    } else if (!tooLong) {
      tooLong = true;
      tellTooLong({buffer, capacity - 1});
    }
  }
  *place = '\0';
  return false;
}

}  // namespace

bool readRecord(char* buffer, std::size_t capacity) {
  constexpr int kNowAndThen = 512;
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
  VornFile::ByteReader input(inputFile);
  char byte = 0;
  if (!input.read(byte)) {
    if (!allowEndOfFile) {
      KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT.throwException();
    }
    return;
  }
  while (byte != control::kFs && input.read(byte)) {
  }
}

}  // namespace silrdm
