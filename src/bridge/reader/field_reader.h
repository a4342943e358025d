// The export's record and field syntax, read from `inputFile`.
//
// A record ends with CR, the last one of a section with FS, and its fields are separated by TAB. A text
// between STX and ETX may hold CR and FS; a TAB separates fields there too. Every other byte is an ordinary
// character.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace silrdm {

namespace control {
inline constexpr char kStx = 2;  // begins a text
inline constexpr char kEtx = 3;  // ends a text
inline constexpr char kTab = 9;  // separates fields
inline constexpr char kCr = 13;  // ends a record
inline constexpr char kFs = 28;  // ends a section, and its last record
}  // namespace control

// Reads one record, without what ended it, into `buffer`, where a zero byte ends it. `capacity` is the size
// of the buffer, at least 1: of a longer record the first `capacity` - 1 bytes are kept and "Line too long"
// is logged. True when the section goes on behind the record; false when it or the file ended with it.
bool readRecord(char* buffer, std::size_t capacity);

// Cuts off the field that begins at `cursor`, inside a record, and moves `cursor` to the field behind it. The
// value is part of the record, ends with a zero byte and leaves out STX, ETX and what stands outside of them;
// of several texts in one field it is the last. Behind the last field every value is empty.
const char* nextField(char*& cursor);

// Reads past the rest of the section, whose end is the first FS, in a text or not, or the end of the file.
// Throws SILRDM_I_BAD_FILE_FORMAT when the file has ended already and `allowEndOfFile` is false.
void skipSection(bool allowEndOfFile);

// Where a record stands in the file. Sections and records count from 1; 0 is for none.
struct RecordPlace {
  RecordPlace() = default;
  RecordPlace(int sectionNumber, std::size_t recordNumber, std::size_t firstByte)
      : section(static_cast<std::int8_t>(sectionNumber)),
        record(recordNumber & ((std::uint64_t{1} << 56) - 1)),
        offset(firstByte) {}

  // Packed, because every element has one.
  int section : 8 = 0;
  std::uint64_t record : 56 = 0;  // within the section, empty ones included
  std::size_t offset = 0;         // of its first byte
};
static_assert(sizeof(RecordPlace) == 2 * sizeof(std::uint64_t));
extern RecordPlace readingPlace;  // of the record that was read last

// The bytes in the buffer that were read last.
struct BufferedRecord {
  std::size_t length = 0;  // more than the text's where a zero byte cuts that
  bool isTooLong = false;  // the end did not fit
};
extern BufferedRecord bufferedRecord;

// A text that is never closed.
struct OpenText {
  RecordPlace record;
  std::size_t offset = 0;  // of the STX
};
extern std::optional<OpenText> openText;  // the one that was open when the file ended in a record
extern bool hasReportedLineFeed;          // of this file

}  // namespace silrdm
