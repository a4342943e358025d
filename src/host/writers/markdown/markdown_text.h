// Texts of a model inside a Markdown document.
#pragma once

#include <string>
#include <string_view>

class TextOutput;

// Writes a text as it is to be read, on one line: what CommonMark, or GitHub's additions to it, would take
// for markup is escaped, and an empty comment keeps readers from making links of addresses. Line breaks
// become `lineBreak`.
void putMarkdown(TextOutput& out, std::string_view utf8, std::string_view lineBreak = " ");

// Writes a link to an anchor of the document.
void putMarkdownLink(TextOutput& out, std::string_view utf8, std::string_view anchor);

// Writes a text as paragraphs that keep its lines, with an empty line behind them. Nothing for a text without
// anything to read.
void putMarkdownParagraphs(TextOutput& out, std::string_view utf8);

// Writes a text as it stands, as a block of code in that language, with an empty line behind it.
void putMarkdownCode(TextOutput& out, std::string_view utf8, std::string_view language);

// An anchor that any renderer takes as it is: ASCII letters in lower case, digits, '_', and '-' for the rest.
std::string makeMarkdownAnchor(std::string_view utf8);
