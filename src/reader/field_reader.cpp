#include "reader/field_reader.h"

#include "bridge/import_state.h"
#include "bridge/messages.h"

namespace silrdm {

ReadingPlace readingPlace;

namespace {

// False at the end of the file, and for a file that cannot be read on.
bool readByte(char& byte) {
  return inputFile.read(&byte, 1) == 1;
}

}  // namespace

bool readRecord(char* buffer, std::size_t capacity) {
  ++readingPlace.record;
  bool inText = false;
  bool tooLong = false;
  char* place = buffer;
  const char* const last = buffer + capacity - 1;
  for (char byte = 0; readByte(byte);) {
    if (!inText && (byte == control::kFs || byte == control::kCr)) {
      *place = '\0';
      return byte == control::kCr;
    }
    if (byte == control::kStx) {
      inText = true;
    } else if (byte == control::kEtx) {
      inText = false;
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
  char byte = 0;
  if (!readByte(byte)) {
    if (!allowEndOfFile) {
      KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT.throwException();
    }
    return;
  }
  while (byte != control::kFs && readByte(byte)) {
  }
}

}  // namespace silrdm
