/// Converts Markdown to HTML by a fixed sequence of substitutions over the whole text, without a syntax tree.
/// Elements nest only as far as substitutions apply to each other's output; later substitutions also apply
/// inside code; and nothing is escaped, so the HTML is only as safe as the Markdown.
#pragma once

#include <string>
#include <string_view>

namespace korvane::MarkdownParser {

/// The HTML fragment for `markdown`, without an enclosing document or style sheet. Never fails; takes a few
/// milliseconds a megabyte, whatever the text.
std::string toHTML(std::string_view markdown);

} // namespace korvane::MarkdownParser
