#include "reader/field_reader.h"

#include "bridge/import_state.h"
#include "bridge/messages.h"

namespace silrdm {

ReadingPlace readingPlace;

bool readRecord(char* buffer, std::size_t capacity) {
  constexpr int kNowAndThen = 512;
  if (++readingPlace.record % kNowAndThen == 0) {
    importLog->progress("reading", inputFile.getPosition(), inputFile.getSize());
  }
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
      KVB_SRRDM::SILRDM_I_LINE_TOO_LONG.log(*importLog);
    }
  }
  *place = '\0';
  return false;
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
