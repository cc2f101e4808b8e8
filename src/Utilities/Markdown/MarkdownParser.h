/// Markdown to HTML by a fixed sequence of substitutions over the whole text. It is not a parser with a tree:
/// nothing nests beyond what the substitutions make of each other's output, code is not protected from the
/// later ones, and nothing is escaped, so the HTML is only as safe as the Markdown.
#pragma once

#include <string>
#include <string_view>

namespace korvane::MarkdownParser {

/// The HTML fragment for `markdown`: no document around it, no style sheet. Never fails; takes a few
/// milliseconds a megabyte, whatever the text.
std::string toHTML(std::string_view markdown);

} // namespace korvane::MarkdownParser
