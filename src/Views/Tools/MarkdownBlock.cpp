#include "Views/Tools/MarkdownBlock.h"

#include "Utilities/Markdown/MarkdownPatterns.h"
#include "Utilities/Text/Text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <ranges>
#include <utility>

namespace korvane {

namespace {

using namespace MarkdownBlocks;

constexpr std::string_view fence = "```";
constexpr std::string_view quoteMarker = "> ";

struct Line {
    std::string_view whole;
    std::string_view trimmed;
};

std::vector<Line> linesOf(std::string_view text) {
    std::vector<Line> lines;
    while (true) {
        const auto lineBreak = MarkdownPatterns::lineBreakFrom(text, 0);
        const auto whole = text.substr(0, lineBreak.start);
        lines.push_back({whole, trimmingWhitespaces(whole)});
        if (lineBreak.start == text.size())
            return lines;
        text.remove_prefix(lineBreak.end);
    }
}

std::optional<Header> header(std::string_view line) {
    constexpr std::size_t maxLevel = 6;
    const auto level = std::min(line.find_first_not_of('#'), line.size());
    const auto text = trimmingWhitespaces(line.substr(level));
    if (level == 0 || level > maxLevel || text.empty() || level + text.size() == line.size())
        return std::nullopt;
    return Header{static_cast<int>(level), std::string(text)};
}

bool isHorizontalRule(std::string_view line) {
    return line.size() >= 3 && line.find_first_not_of("-*_") == std::string_view::npos;
}

std::optional<std::string_view> unorderedItem(std::string_view line) {
    if (line.starts_with("- ") || line.starts_with("* ") || line.starts_with("+ "))
        return line.substr(2);
    return std::nullopt;
}

std::optional<std::string_view> orderedItem(std::string_view line) {
    if (const auto end = MarkdownPatterns::endOfOrderedMarker(line))
        return trimmingWhitespaces(line.substr(*end));
    return std::nullopt;
}

/// Whether a paragraph ends before `line`. A horizontal rule does not end it.
bool endsParagraph(std::string_view line) {
    return line.empty() || header(line) || line.starts_with(fence) || line.starts_with(quoteMarker) ||
           unorderedItem(line) || orderedItem(line);
}

class Parser {
public:
    explicit Parser(std::string_view text) : m_lines(linesOf(text)) {}

    std::vector<MarkdownBlock> parse() {
        std::vector<MarkdownBlock> blocks;
        while (m_next < m_lines.size()) {
            if (current().empty())
                ++m_next;
            else
                blocks.push_back(block());
        }
        return blocks;
    }

private:
    std::string_view current() const { return m_lines[m_next].trimmed; }

    MarkdownBlock block() {
        if (auto found = header(current())) {
            ++m_next;
            return std::move(*found);
        }
        if (current().starts_with(fence))
            return codeBlock();
        if (isHorizontalRule(current())) {
            ++m_next;
            return HorizontalRule{};
        }
        if (current().starts_with(quoteMarker))
            return blockquote();
        if (unorderedItem(current()))
            return UnorderedList{items(unorderedItem)};
        if (orderedItem(current()))
            return OrderedList{items(orderedItem)};
        return paragraph();
    }

    CodeBlock codeBlock() {
        CodeBlock block{.language = std::string(current().substr(fence.size()))};
        const auto start = ++m_next;
        for (; m_next < m_lines.size() && !current().starts_with(fence); ++m_next) {
            if (m_next > start)
                block.code += '\n';
            block.code += m_lines[m_next].whole;
        }
        m_next = std::min(m_next + 1, m_lines.size());
        return block;
    }

    Blockquote blockquote() {
        Blockquote block{std::string(current().substr(quoteMarker.size()))};
        for (++m_next; m_next < m_lines.size() && current().starts_with(quoteMarker); ++m_next)
            block.text.append("\n").append(current().substr(quoteMarker.size()));
        return block;
    }

    std::vector<std::string> items(std::optional<std::string_view> (*itemOf)(std::string_view)) {
        std::vector<std::string> items;
        for (; m_next < m_lines.size(); ++m_next) {
            const auto item = itemOf(current());
            if (!item)
                break;
            items.emplace_back(*item);
        }
        return items;
    }

    Paragraph paragraph() {
        Paragraph block{std::string(current())};
        for (++m_next; m_next < m_lines.size() && !endsParagraph(current()); ++m_next)
            block.text.append(" ").append(current());
        return block;
    }

    std::vector<Line> m_lines;
    std::size_t m_next = 0;
};

} // namespace

std::vector<MarkdownBlock> parseBlocks(std::string_view markdown) {
    return Parser(markdown).parse();
}

} // namespace korvane
