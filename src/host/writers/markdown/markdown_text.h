// Texts of a model inside a Markdown document.
#pragma once

#include <string>
#include <string_view>

class TextOutput;

// Writes a text on one line. Escapes what CommonMark, or GitHub's additions to it, would read as markup; an
// empty comment prevents readers from turning addresses into links. Line breaks become `lineBreak`.
void putMarkdown(TextOutput& out, std::string_view utf8, std::string_view lineBreak = " ");

// Writes a link to an anchor of the document.
void putMarkdownLink(TextOutput& out, std::string_view utf8, std::string_view anchor);

// Writes a text as paragraphs that keep its lines, followed by an empty line. Writes nothing for a blank
// text.
void putMarkdownParagraphs(TextOutput& out, std::string_view utf8);

// Writes a text unchanged as a block of code in that language, followed by an empty line.
void putMarkdownCode(TextOutput& out, std::string_view utf8, std::string_view language);

// Returns an anchor that every renderer accepts unchanged: lower-case ASCII letters, digits, '_', and '-' for
// other characters.
std::string makeMarkdownAnchor(std::string_view utf8);
