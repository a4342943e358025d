// VornString: the text type of every interface of the host framework.
//
// A text is a run of bytes that holds no zero byte, in whatever encoding its source uses; the transcoder
// turns a model's texts into UTF-8. Small texts (up to 15 bytes) need no allocation.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class VornString {
 public:
  VornString() = default;
  VornString(const char* text) : text_(text) {}
  explicit VornString(std::string_view text) : text_(text) {}
  explicit VornString(std::string&& text) : text_(std::move(text)) {}
  // The decimal text of `value`, with a minus sign when it is negative.
  explicit VornString(std::int32_t value) : text_(std::to_string(value)) {}

  VornString& operator+=(const VornString& more) {
    text_ += more.text_;
    return *this;
  }

  const char* c_str() const { return text_.c_str(); }
  std::size_t length() const { return text_.length(); }
  bool empty() const { return text_.empty(); }
  std::string_view view() const { return text_; }

  // Same text; with `letterCaseCounts` false, ASCII letters that differ in case alone are the same.
  bool equals(const VornString& other, bool letterCaseCounts) const;

  // A copy without leading and trailing blanks (space, TAB, LF, VT, FF, CR).
  VornString trim() const;

  friend bool operator==(const VornString& a, const VornString& b) { return a.text_ == b.text_; }
  friend auto operator<=>(const VornString& a, const VornString& b) { return a.text_ <=> b.text_; }

 private:
  std::string text_;
};

VornString operator+(const VornString& first, const VornString& second);

// The blanks that `trim` and number reading know.
inline constexpr std::string_view kVornBlanks = " \t\n\v\f\r";

// A copy with ASCII letters in upper case.
std::string toUpperAscii(std::string_view text);

// The decimal integer at the start of `text`: leading blanks, an optional sign, digits up to the first other
// byte. None without a digit in that place. A number beyond 32 bits becomes the nearest 32-bit bound.
std::optional<std::int32_t> parseInteger(std::string_view text);

template <>
struct std::hash<VornString> {
  std::size_t operator()(const VornString& text) const noexcept {
    return std::hash<std::string_view>{}(text.view());
  }
};
