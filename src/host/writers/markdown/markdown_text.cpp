#include "host/writers/markdown/markdown_text.h"

#include <algorithm>

#include "host/writers/common/texts.h"

namespace {

bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// Whether the byte there would mean something to Markdown.
bool isMarkup(std::string_view line, std::size_t place) {
  const char before = place == 0 ? ' ' : line[place - 1];
  const char after = place + 1 == line.size() ? ' ' : line[place + 1];
  switch (line[place]) {
    case '\\':
    case '`':
    case '*':
    case '[':
    case ']':
    case '<':
    case '|':
    case '~':
    case '$':
      return true;
    case '_':  // not inside a word
      return !isLetterOrDigit(before) || !isLetterOrDigit(after);
    case '&':  // only as the beginning of an entity
      return isLetterOrDigit(after) || after == '#';
    case '#':  // of headings, at either end
      return before == ' ';
    default:
      return false;
  }
}

bool isAscii(char c) {
  return static_cast<signed char>(c) >= 0;
}

// Whether the '@' there stands between a name and what could be a domain: letters with a dot among them.
bool isInAddress(std::string_view line, std::size_t place) {
  const auto isNameByte = [](char c) {
    return isLetterOrDigit(c) || !isAscii(c) ||
           std::string_view("!#$%&'*+-./=?^_`{|}~").find(c) != std::string_view::npos;
  };
  if (place == 0 || !isNameByte(line[place - 1])) {
    return false;
  }
  const std::string_view rest = line.substr(place + 1);
  const auto* const end = std::ranges::find_if_not(
      rest, [](char c) { return isLetterOrDigit(c) || !isAscii(c) || c == '-' || c == '_' || c == '.'; });
  const std::string_view domain = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
  return domain.substr(0, domain.find_last_not_of('.') + 1).find('.') != std::string_view::npos;
}

// Whether the byte there is in the middle of what many readers turn into a link: "http://", "www." or
// the address of a mailbox. To them it makes no difference how the byte is written, for they look for links
// once escapes are resolved; but what has something between its parts is none.
bool isInsideAutolink(std::string_view line, std::size_t place) {
  switch (line[place]) {
    case ':':
      return place > 0 && isLetterOrDigit(line[place - 1]) && line.substr(place + 1, 2) == "//";
    case '.':
      return place >= 3 && place + 1 < line.size() && line[place + 1] != ' ' &&
             std::ranges::all_of(line.substr(place - 3, 3), [](char c) { return (c | 0x20) == 'w'; });
    case '@':
      return isInAddress(line, place);
    default:
      return false;
  }
}
constexpr std::string_view kNoLink = "<!-- -->";

std::string_view trim(std::string_view line) {
  const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
  return line.substr(start, line.find_last_not_of(' ') + 1 - start);
}

void putEscaped(TextOutput& out, std::string_view line) {
  constexpr std::string_view kCandidates = "\\`*[]<|~$_&#:.@";
  std::size_t start = 0;
  for (std::size_t i = line.find_first_of(kCandidates); i < line.size();
       i = line.find_first_of(kCandidates, i + 1)) {
    if (const bool isLink = isInsideAutolink(line, i); isLink || isMarkup(line, i)) {
      out.add(line.substr(start, i - start), isLink ? kNoLink : "\\");
      start = i;
    }
  }
  out.add(line.substr(start));
}

// A line that begins a block, which also list items, rules, quotations and tables could do.
void putFirstLine(TextOutput& out, std::string_view line) {
  const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
  if (digits > 0 && digits < line.size() && (line[digits] == '.' || line[digits] == ')')) {
    out.add(line.substr(0, digits), '\\', line[digits]);
    line.remove_prefix(digits + 1);
  } else if (!line.empty() && std::string_view("-+=>:").find(line.front()) != std::string_view::npos) {
    out.add('\\', line.front());
    line.remove_prefix(1);
  }
  putEscaped(out, line);
}

}  // namespace

void putMarkdown(TextOutput& out, std::string_view utf8, std::string_view lineBreak) {
  if (isPlain(utf8)) {
    putEscaped(out, trim(utf8));  // marks for bold text hold only next to it
    return;
  }
  std::string_view separator;
  for (const std::string& line : toLines(utf8)) {
    out.add(separator);
    putEscaped(out, trim(line));
    separator = lineBreak;
  }
}

void putMarkdownLink(TextOutput& out, std::string_view utf8, std::string_view anchor) {
  out.add('[');
  if (utf8.find_first_of("[]") == std::string_view::npos) {
    putMarkdown(out, utf8);
  } else {  // some readers see links in a link's text, whatever is escaped there
    const std::string line = toOneLine(utf8);
    for (std::size_t i = 0; i < line.size(); ++i) {
      const char c = line[i];
      out.add(isInsideAutolink(line, i) ? kNoLink : "");
      if (c == '[' || c == ']' || c == '&') {
        out.add("&#", static_cast<int>(c), ';');
      } else {
        putEscaped(out, std::string_view(&c, 1));
      }
    }
  }
  out.add("](#", anchor, ')');
}

void putMarkdownParagraphs(TextOutput& out, std::string_view utf8) {
  bool isInside = false;  // a paragraph
  for (const std::string& line : toLines(utf8)) {
    const std::string_view words = trim(line);
    if (words.empty()) {
      out.add(isInside ? "\n\n" : "");
      isInside = false;
      continue;
    }
    out.add(isInside ? "  \n" : "");
    putFirstLine(out, words);
    isInside = true;
  }
  out.add(isInside ? "\n\n" : "");
}

void putMarkdownCode(TextOutput& out, std::string_view utf8, std::string_view language) {
  std::size_t longest = 0;
  std::size_t run = 0;
  for (const char c : utf8) {
    run = c == '`' ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  const std::string fence(std::max<std::size_t>(3, longest + 1), '`');
  out.add(fence, language, '\n');
  for (const std::string& line : toLines(utf8)) {
    out.add(line, '\n');
  }
  out.add(fence, "\n\n");
}

std::string makeMarkdownAnchor(std::string_view utf8) {
  std::string anchor(utf8);
  for (char& c : anchor) {
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : isLetterOrDigit(c) || c == '_' ? c : '-';
  }
  return anchor;
}
