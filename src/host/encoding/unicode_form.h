// Which Unicode encoding form a file is in, and how it becomes UTF-8 without a byte order mark.
#pragma once

#include <optional>
#include <string>
#include <string_view>

enum class VornUnicodeForm { none, utf8WithMark, utf16Little, utf16Big, utf32Little, utf32Big };

// The form that a file's beginning shows, of which no more than 4096 bytes are looked at: by a byte order
// mark or, in 64 bytes or more, by where zero bytes are, since text that is mostly ASCII has them in fixed
// places. `none` for everything else, UTF-8 without a mark included.
VornUnicodeForm detectUnicodeForm(std::string_view head);

// "UTF-16 (little-endian)"; empty for `none`.
std::string_view getName(VornUnicodeForm form);

// Whether its characters take 2 or 4 bytes at least.
bool isWide(VornUnicodeForm form);

// The whole of a file as UTF-8, marks at its beginning removed. Nothing where it is not wholly valid in that
// form.
std::optional<std::string> convertToUtf8(std::string_view bytes, VornUnicodeForm form);
