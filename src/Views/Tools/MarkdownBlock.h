/// The blocks of the visual Markdown preview. Their parser is independent of the HTML converter, and the
/// results may differ.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvane {

namespace MarkdownBlocks {

struct Header {
    int level = 1; ///< 1 to 6
    std::string text{};
    bool operator==(const Header&) const = default;
};

struct Paragraph {
    std::string text{};
    bool operator==(const Paragraph&) const = default;
};

struct CodeBlock {
    std::string language{}; ///< the text after the opening fence; often empty
    std::string code{};
    bool operator==(const CodeBlock&) const = default;
};

struct Blockquote {
    std::string text{}; ///< its lines, joined by line feeds
    bool operator==(const Blockquote&) const = default;
};

struct UnorderedList {
    std::vector<std::string> items{};
    bool operator==(const UnorderedList&) const = default;
};

struct OrderedList {
    std::vector<std::string> items{}; ///< without their numbers
    bool operator==(const OrderedList&) const = default;
};

struct HorizontalRule {
    bool operator==(const HorizontalRule&) const = default;
};

} // namespace MarkdownBlocks

using MarkdownBlock =
    std::variant<MarkdownBlocks::Header, MarkdownBlocks::Paragraph, MarkdownBlocks::CodeBlock,
                 MarkdownBlocks::Blockquote, MarkdownBlocks::UnorderedList, MarkdownBlocks::OrderedList,
                 MarkdownBlocks::HorizontalRule>;

/// The blocks of `markdown` in order. Any newline character ends a line, and CR LF counts as one; blank lines
/// give no block. A paragraph ends at a blank line, or where a block other than a horizontal rule begins.
/// Takes a few milliseconds per megabyte.
std::vector<MarkdownBlock> parseBlocks(std::string_view markdown);

} // namespace korvane
