// The few questions about UTF-8 that the log, the views and the writers ask. Conversions from other encodings
// are the transcoder's.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The place of the first byte that is not ASCII; the size where all are.
std::size_t findNonAscii(std::string_view text);

// Whether all of `text` is ASCII.
bool isAscii(std::string_view text);

// Whether all of `text` is well-formed UTF-8.
bool isUtf8(std::string_view text);

// What all spellings of a name in other letter case have in common; where it is not UTF-8, in other case of
// ASCII letters.
std::string foldCase(std::string_view name);

// `text` read as ISO-8859-1 (each byte is the code point of the same number), as UTF-8.
std::string latin1ToUtf8(std::string_view text);

// Returns `text` if it is UTF-8; otherwise converts it from ISO-8859-1 into `buffer` and returns that.
std::string_view asUtf8(std::string_view text, std::string& buffer);

// Returns `text` as one line that a terminal can show: control and format characters (categories Cc and Cf)
// and separators of lines and paragraphs become blanks, and a byte that is no part of well-formed UTF-8
// becomes the ISO-8859-1 character of that number.
std::string toPrintableLine(std::string_view text);

// JSON in UTF-8 with those characters, other than the controls of ASCII, as escapes: "\u202E". It means the
// same.
std::string escapeCommands(std::string_view utf8);
