/// The unit of the visual Markdown preview: what a run of lines is. It is independent of the HTML converter
/// and need not agree with it.
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
    std::string language{}; ///< what stands behind the opening fence; mostly empty
    std::string code{};
    bool operator==(const CodeBlock&) const = default;
};

struct Blockquote {
    std::string text{}; ///< its lines, with a line feed between them
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

/// The blocks of `markdown` in their order. Any newline character ends a line, CR LF being one; blank lines
/// give no block. A paragraph goes on until a blank line, or until the next block begins that is not a
/// horizontal rule. Costs a few milliseconds a megabyte.
std::vector<MarkdownBlock> parseBlocks(std::string_view markdown);

} // namespace korvane
