#include "host/services/foreign_content.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>

#include "host/encoding/unicode_form.h"

namespace {

constexpr std::size_t kHeadSize = 4096;
constexpr char kFs = 28;

// Whether `byte` is a control character that no export format has: 1, or 0. Only sums of comparisons become
// vector instructions: those below 9 without STX and ETX, and those from 14 to 31 without FS.
constexpr std::uint8_t isForeignControl(std::uint8_t byte) {
  const auto one = [](bool is) { return static_cast<std::uint8_t>(is); };
  return static_cast<std::uint8_t>(one(byte < 9) - one(byte == 2) - one(byte == 3) + one(byte < 32) -
                                   one(byte < 14) - one(byte == 28));
}

// Written so that compilers make vector instructions of it: parts of a fixed size, counted in a byte.
std::size_t countForeignControls(std::string_view bytes) {
  constexpr std::size_t kPart = 128;
  std::size_t count = 0;
  for (; bytes.size() >= kPart; bytes.remove_prefix(kPart)) {
    std::uint8_t counted = 0;
    for (std::size_t i = 0; i < kPart; ++i) {
      counted = static_cast<std::uint8_t>(counted + isForeignControl(static_cast<std::uint8_t>(bytes[i])));
    }
    count += counted;
  }
  for (const char byte : bytes) {
    count += isForeignControl(static_cast<std::uint8_t>(byte));
  }
  return count;
}

std::string_view skipBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

bool beginsLikeXml(std::string_view text) {
  return text.starts_with("<?xml") || text.starts_with("<!DOCTYPE") || text.starts_with("<!--") ||
         (text.size() > 1 && text[0] == '<' && std::isalpha(static_cast<unsigned char>(text[1])) != 0);
}

bool beginsLikeJson(std::string_view text) {
  if (text.empty() || (text[0] != '{' && text[0] != '[')) {
    return false;
  }
  const std::string_view inside = skipBlanks(text.substr(1));
  return !inside.empty() &&
         std::string_view(text[0] == '{' ? "\"}" : "\"{[]-0123456789tfn").find(inside[0]) !=
             std::string_view::npos;
}

// The text without the comments and blanks that it begins with.
std::string_view skipSqlComments(std::string_view text) {
  for (text = skipBlanks(text);; text = skipBlanks(text)) {
    if (text.starts_with("--")) {
      text.remove_prefix(std::min(text.find('\n'), text.size()));
    } else if (text.starts_with("/*")) {
      const std::size_t end = text.find("*/", 2);
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    } else {
      return text;
    }
  }
}

bool beginsLikeSql(std::string_view text) {
  constexpr std::array<std::string_view, 14> kVerbs = {"ALTER",  "BEGIN", "COMMENT", "CONNECT", "CREATE",
                                                       "DELETE", "DROP",  "GRANT",   "INSERT",  "SELECT",
                                                       "SET",    "USE",   "UPDATE",  "WITH"};
  const std::string_view statement = skipSqlComments(text);
  std::string word;
  for (const char letter : statement.substr(0, 8)) {
    if (std::isalpha(static_cast<unsigned char>(letter)) == 0) {
      break;
    }
    word += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  }
  const bool endsInBlank =
      word.size() < statement.size() && std::isspace(static_cast<unsigned char>(statement[word.size()])) != 0;
  return endsInBlank && std::ranges::find(kVerbs, word) != kVerbs.end();
}

// What a text file is by how it begins; empty for what is not known.
std::string_view nameTextFormat(std::string_view head) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (head.starts_with(kMark)) {
    head.remove_prefix(kMark.size());
  }
  if (head.find(kFs) != std::string_view::npos) {
    return "";
  }
  const std::string_view text = skipBlanks(head);
  return beginsLikeXml(text)    ? "an XML or HTML document"
         : beginsLikeJson(text) ? "JSON"
         : beginsLikeSql(text)  ? "an SQL script"
                                : "";
}

std::string_view nameArchive(std::string_view head) {
  return head.starts_with("\x1F\x8B\x08")                                   ? "a gzip archive"
         : head.starts_with("PK\x03\x04") || head.starts_with("PK\x05\x06") ? "a zip archive"
                                                                            : "";
}

}  // namespace

void VornForeignContentInspector::look(std::string_view bytes) {
  head_ += bytes.substr(0, kHeadSize - std::min(kHeadSize, head_.size()));
  size_ += bytes.size();
  foreign_ += countForeignControls(bytes);
}

VornInputFinding VornForeignContentInspector::finish(const std::string& name) {
  constexpr std::size_t kFew = 32;           // control characters, which a small file may have by accident
  constexpr std::size_t kBinaryPercent = 5;  // of noise 10 % are such characters
  const auto is = [&](std::string_view what) { return "'" + name + "' is " + std::string(what) + "."; };
  if (const VornUnicodeForm form = detectUnicodeForm(head_); isWide(form)) {
    return {is(std::string(getName(form)) + " text, which cannot be imported"), "", true};
  }
  if (const std::string_view archive = nameArchive(head_); !archive.empty()) {
    return {is(archive), "Unpack it and import the export inside.", false};
  }
  if (const std::string_view format = nameTextFormat(head_); !format.empty()) {
    return {is(format), "Export the model as TXT and import that.", false};
  }
  if (foreign_ > kFew && foreign_ * 100 > size_ * kBinaryPercent) {
    const std::size_t percent = foreign_ * 100 / size_;
    return {is("a binary file: " + std::to_string(percent) +
               " % of it are control characters, which exports do not contain"),
            "Export the model as TXT and import that.", false};
  }
  return {};
}
