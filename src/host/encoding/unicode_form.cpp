#include "host/encoding/unicode_form.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

struct Form {
  VornUnicodeForm form;
  std::string_view name;
  std::string_view mark;
  std::size_t unit;  // bytes
  bool bigEndian;
};

using namespace std::string_view_literals;

// A mark that begins with another one comes first.
constexpr std::array<Form, 5> kForms = {{
    {VornUnicodeForm::utf32Little, "UTF-32 (little-endian)", "\xFF\xFE\0\0"sv, 4, false},
    {VornUnicodeForm::utf32Big, "UTF-32 (big-endian)", "\0\0\xFE\xFF"sv, 4, true},
    {VornUnicodeForm::utf16Little, "UTF-16 (little-endian)", "\xFF\xFE"sv, 2, false},
    {VornUnicodeForm::utf16Big, "UTF-16 (big-endian)", "\xFE\xFF"sv, 2, true},
    {VornUnicodeForm::utf8WithMark, "UTF-8 with a byte order mark", "\xEF\xBB\xBF"sv, 1, false},
}};

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

const Form* findForm(VornUnicodeForm form) {
  const auto* const found = std::ranges::find(kForms, form, &Form::form);
  return found == kForms.end() ? nullptr : found;
}

// Whether the zero bytes are where `form` has those of ASCII characters, and next to nowhere else.
bool hasZerosOf(const Form& form, const std::array<std::size_t, 4>& zeros, std::size_t size) {
  const std::size_t characters = size / form.unit;
  std::size_t elsewhere = 0;
  std::size_t least = characters;
  for (std::size_t place = 0; place < form.unit; ++place) {
    std::size_t there = 0;
    for (std::size_t i = place; i < zeros.size(); i += form.unit) {
      there += zeros[i];
    }
    const std::size_t asciiPlace = form.bigEndian ? form.unit - 1 : 0;
    if (place == asciiPlace) {
      elsewhere = there;
    } else {
      least = std::min(least, there);
    }
  }
  return least * 4 >= characters && elsewhere * 20 <= characters;
}

std::uint32_t readUnit(const char* bytes, const Form& form) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < form.unit; ++i) {
    const std::size_t place = form.bigEndian ? i : form.unit - 1 - i;
    value = value << 8U | static_cast<std::uint8_t>(bytes[place]);
  }
  return value;
}

void appendUtf8(std::string& text, std::uint32_t point) {
  char bytes[U8_MAX_LENGTH];
  std::size_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, point);
  text.append(bytes, length);
}

// Nothing where a surrogate is alone, a value is beyond Unicode or the last character is cut.
std::optional<std::string> decode(std::string_view bytes, const Form& form) {
  if (bytes.size() % form.unit != 0) {
    return std::nullopt;
  }
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); i += form.unit) {
    std::uint32_t point = readUnit(bytes.data() + i, form);
    const bool isPair = form.unit == 2 && U16_IS_LEAD(point) && i + 2 < bytes.size();
    if (isPair) {
      i += 2;
      const std::uint32_t trail = readUnit(bytes.data() + i, form);
      if (!U16_IS_TRAIL(trail)) {
        return std::nullopt;
      }
      point = static_cast<std::uint32_t>(U16_GET_SUPPLEMENTARY(point, trail));
    }
    if (U_IS_SURROGATE(point) || point > 0x10FFFF) {
      return std::nullopt;
    }
    appendUtf8(text, point);
  }
  return text;
}

}  // namespace

VornUnicodeForm detectUnicodeForm(std::string_view head) {
  constexpr std::size_t kEnough = 64;
  constexpr std::size_t kLookedAt = 4096;
  for (const Form& form : kForms) {
    if (head.starts_with(form.mark)) {
      return form.form;
    }
  }
  if (head.size() < kEnough) {
    return VornUnicodeForm::none;
  }
  std::array<std::size_t, 4> zeros{};
  head = head.substr(0, std::min(kLookedAt, head.size() - head.size() % zeros.size()));
  for (std::size_t i = 0; i < head.size(); ++i) {
    zeros[i % zeros.size()] += static_cast<std::size_t>(head[i] == '\0');
  }
  for (const Form& form : kForms) {
    if (form.unit > 1 && hasZerosOf(form, zeros, head.size())) {
      return form.form;
    }
  }
  return VornUnicodeForm::none;
}

std::string_view getName(VornUnicodeForm form) {
  const Form* known = findForm(form);
  return known == nullptr ? "" : known->name;
}

bool isWide(VornUnicodeForm form) {
  const Form* known = findForm(form);
  return known != nullptr && known->unit > 1;
}

std::optional<std::string> convertToUtf8(std::string_view bytes, VornUnicodeForm form) {
  const Form* known = findForm(form);
  std::optional<std::string> text =
      known == nullptr || known->unit == 1 ? std::string(bytes) : decode(bytes, *known);
  while (text && text->starts_with(kUtf8Mark)) {
    text->erase(0, kUtf8Mark.size());
  }
  return text;
}
