// The bytes that structure an export.
//
// A record ends with CR, the last one of a section with FS, and its fields are separated by TAB. A text
// between STX and ETX may contain CR and FS; a TAB separates fields even there. Every other byte is an
// ordinary character.
#pragma once

namespace silrdm {

namespace control {
inline constexpr char kStx = 2;  // begins a text
inline constexpr char kEtx = 3;  // ends a text
inline constexpr char kTab = 9;  // separates fields
inline constexpr char kCr = 13;  // ends a record
inline constexpr char kFs = 28;  // ends a section, and its last record
}  // namespace control

// Splits off the field at `cursor` and moves `cursor` to the next field. The returned value is a part of the
// record, ends with a zero byte and excludes STX, ETX and the bytes outside of them. If a field has several
// texts, the last one is the value. After the last field every value is empty.
inline const char* nextField(char*& cursor) {
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

}  // namespace silrdm
