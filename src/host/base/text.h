// VornString: the text type of every interface of the host framework.
//
// A text is a sequence of bytes without a zero byte, in the encoding of its source; the transcoder converts a
// model's texts to UTF-8. Texts of up to 15 bytes need no allocation. A VornString takes 16 bytes because
// models consist mostly of them. A text of 4 GiB or more throws std::length_error.
#pragma once

#include <compare>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class VornString {
 public:
  VornString() = default;
  VornString(const char* text) : VornString(std::string_view(text)) {}
  explicit VornString(const std::string& text) : VornString(std::string_view(text)) {}
  explicit VornString(std::string_view text) {
    if (text.size() <= kMostInside) {
      text.copy(bytes_, text.size());
      bytes_[kMostInside] = static_cast<char>(kMostInside - text.size());
    } else {
      keepOutside(text, {});
    }
  }
  // The decimal text of `value`, with a minus sign when it is negative.
  explicit VornString(std::int32_t value) : VornString(std::string_view(std::to_string(value))) {}

  VornString(const VornString& other) : VornString(other.view()) {}
  VornString(VornString&& other) noexcept { swap(other); }
  VornString& operator=(VornString other) noexcept {
    swap(other);
    return *this;
  }
  ~VornString() {
    if (isOutside()) {
      delete[] outside();
    }
  }

  VornString& operator+=(const VornString& more) { return *this = *this + more; }

  const char* c_str() const { return isOutside() ? outside() : bytes_; }
  std::size_t length() const { return isOutside() ? lengthOutside() : kMostInside - lastByte(); }
  bool empty() const { return lastByte() == kMostInside; }
  std::string_view view() const { return {c_str(), length()}; }

  // Same text; with `letterCaseCounts` false, ASCII letters that differ in case alone are the same.
  bool equals(const VornString& other, bool letterCaseCounts) const;

  // A copy without leading and trailing blanks (space, TAB, LF, VT, FF, CR).
  VornString trim() const;

  friend bool operator==(const VornString& a, const VornString& b) {
    // What a text does not use of its bytes is zero.
    return a.isOutside() ? a.view() == b.view() : std::memcmp(a.bytes_, b.bytes_, sizeof a.bytes_) == 0;
  }
  friend auto operator<=>(const VornString& a, const VornString& b) { return a.view() <=> b.view(); }
  friend VornString operator+(const VornString& first, const VornString& second);

 private:
  static constexpr std::size_t kMostInside = 15;
  static constexpr std::size_t kOutside = 0xFF;

  // The last byte is the number of free bytes, so that it terminates a text of 15 bytes, or kOutside. In that
  // case the address and then the length of the text are stored.
  std::size_t lastByte() const { return static_cast<unsigned char>(bytes_[kMostInside]); }
  bool isOutside() const { return lastByte() == kOutside; }
  char* outside() const {
    char* text = nullptr;
    std::memcpy(&text, bytes_, sizeof text);
    return text;
  }
  std::uint32_t lengthOutside() const {
    std::uint32_t length = 0;
    std::memcpy(&length, bytes_ + sizeof(char*), sizeof length);
    return length;
  }
  // Keeps the two texts as one, which is too long to be inside.
  void keepOutside(std::string_view first, std::string_view second);

  void swap(VornString& other) noexcept {
    char bytes[sizeof bytes_];
    std::memcpy(bytes, bytes_, sizeof bytes_);
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    std::memcpy(other.bytes_, bytes, sizeof bytes_);
  }

  alignas(char*) char bytes_[kMostInside + 1] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, kMostInside};
};

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

// The texts that `toText` makes of the items, with the separator between them.
template <class Items, class ToText = std::identity>
std::string join(const Items& items, std::string_view separator, ToText toText = {}) {
  std::string joined;
  bool isFirst = true;
  for (const auto& item : items) {
    joined += isFirst ? std::string_view() : separator;
    joined += std::invoke(toText, item);
    isFirst = false;
  }
  return joined;
}
